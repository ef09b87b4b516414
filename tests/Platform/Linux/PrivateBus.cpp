#include "tests/Platform/Linux/PrivateBus.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace norra::linux_desktop {
namespace {

std::string configuration(const std::filesystem::path& folder, const std::filesystem::path& servicesFolder) {
  const std::string services = servicesFolder.empty() ? "" : "<servicedir>" + servicesFolder.string() + "</servicedir>";
  return "<busconfig><type>session</type><listen>unix:dir=" + folder.string() + "</listen>" + services + R"(
    <policy context="default">
      <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
    </policy><limit name="max_replies_per_connection">50000</limit></busconfig>)";
}

/// Starts the daemon; its address comes out of the pipe.
pid_t startDaemon(const std::filesystem::path& configurationFile, int pipeForAddress) {
  const auto config = "--config-file=" + configurationFile.string();
  const auto address = "--print-address=" + std::to_string(pipeForAddress);
  const pid_t daemon = fork();
  if (daemon == 0) {
    execlp("dbus-daemon", "dbus-daemon", config.c_str(), address.c_str(), "--nofork", "--nopidfile", nullptr);
    _exit(127);
  }
  return daemon;
}

std::string readLine(int descriptor) {
  std::string line;
  for (char character = 0; read(descriptor, &character, 1) == 1 && character != '\n';) line += character;
  return line;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  auto name = (std::filesystem::temp_directory_path() / "norra-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

PrivateBus::PrivateBus(const std::filesystem::path& servicesFolder) {
  const auto configurationFile = folder_.path() / "bus.conf";
  std::ofstream(configurationFile) << configuration(folder_.path(), servicesFolder);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  daemon_ = startDaemon(configurationFile, ends[1]);
  close(ends[1]);
  const auto address = readLine(ends[0]);
  close(ends[0]);
  if (address.empty()) throw std::runtime_error("dbus-daemon does not start");
  setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
}

PrivateBus::~PrivateBus() {
  kill();
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void PrivateBus::kill() {
  if (daemon_ == 0) return;
  ::kill(daemon_, SIGKILL);
  waitpid(daemon_, nullptr, 0);
  daemon_ = 0;
}

PrivateAccessibilityBus::PrivateAccessibilityBus() {
  setenv("AT_SPI_BUS_ADDRESS", std::getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
}

PrivateAccessibilityBus::~PrivateAccessibilityBus() { unsetenv("AT_SPI_BUS_ADDRESS"); }

}  // namespace norra::linux_desktop
