// norra-publish: publishes each line of its input to the MQTT broker of this machine, once that can take it.
#include <mosquitto.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "Fleet/LineReader.h"
#include "Fleet/Publisher.h"

namespace {

namespace fleet = norra::fleet;

constexpr const char* description =
    "Publishes each line of standard input, a report of norra-collect, as one message to the MQTT broker of this "
    "machine, "
    "with a session identifier and a sequence number. While the broker is away, reports wait on the disk.";
constexpr const char* footer =
    "Exit status: 0 when every report has arrived at the broker, 1 when the folder cannot be used, 2 for a wrong use, "
    "3 when "
    "reports wait for the next start.";
constexpr int folderUnusable = 1;
constexpr int usageError = 2;
constexpr int reportsWait = 3;
constexpr std::chrono::seconds maxFarewell{10};
constexpr std::size_t mebibyte = 1024 * 1024;

struct Arguments {
  std::string socket = "/run/norra-fleet/socket";
  std::string folder;
  std::size_t maxMebibytes = 64;
  unsigned keeping = 180;
  fleet::Desktop desktop = fleet::thisDesktop();
  bool printsTopic = false;
};

void tell(const std::string& text) { std::fprintf(stderr, "norra-publish: %s\n", text.c_str()); }

std::string folderInHome() {
  const char* state = std::getenv("XDG_STATE_HOME");
  const char* home = std::getenv("HOME");
  if (state != nullptr && state[0] == '/') return std::string(state) + "/norra-fleet";
  return std::string(home == nullptr ? "" : home) + "/.local/state/norra-fleet";
}

/// The first signal leaves time for what is still to be read, the second none.
void endOnSignals(norra::linux_desktop::EventLoop& loop) {
  loop.onTerminationSignals([&loop, isFirst = true]() mutable {
    if (!std::exchange(isFirst, false)) return loop.end(reportsWait);
    loop.postAfter(maxFarewell, [&loop] { loop.end(reportsWait); });
  });
}

int publish(const Arguments& arguments) {
  std::signal(SIGPIPE, SIG_IGN);
  norra::linux_desktop::EventLoop loop;
  endOnSignals(loop);
  auto opened = fleet::Spool::open(arguments.folder, arguments.maxMebibytes * mebibyte);
  if (const auto* problem = std::get_if<std::string>(&opened)) {
    tell(*problem);
    return folderUnusable;
  }
  fleet::Publisher publisher(
      loop, std::get<fleet::Spool>(std::move(opened)),
      {.socket = arguments.socket, .desktop = arguments.desktop, .keeping = std::chrono::seconds(arguments.keeping)},
      tell);
  const auto finish = [&] {
    publisher.finish(maxFarewell, [&](bool hasArrived) { loop.end(hasArrived ? 0 : reportsWait); });
  };
  const fleet::LineReader reader(loop, STDIN_FILENO,
                                 {.line = [&](const std::string& line) { publisher.publish(line); }, .end = finish});
  const int status = loop.run().value_or(0);
  if (status == reportsWait) tell("Reports wait in " + arguments.folder + " for the next start.");
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments{.folder = folderInHome()};
  CLI::App app(description, "norra-publish");
  app.footer(footer);
  app.add_option("--socket", arguments.socket, "Where the broker listens")->option_text("FILE");
  app.add_option("--folder", arguments.folder, "Where reports wait")->option_text("FILE");
  app.add_option("--limit", arguments.maxMebibytes, "How much may wait before the oldest reports give way")
      ->check(CLI::Range(1, 4096))
      ->option_text("MIB");
  app.add_option("--keep", arguments.keeping, "How long a report is kept after the broker has it, for when it crashes")
      ->check(CLI::Range(0, 86400))
      ->option_text("SECONDS");
  app.add_option("--host", arguments.desktop.host, "The desktop's name in the topic")->option_text("NAME");
  app.add_option("--user", arguments.desktop.user, "The user's name in the topic")->option_text("NAME");
  app.add_flag("--print-topic", arguments.printsTopic, "Print the topic of the reports, and end");
  app.set_version_flag("--version", "norra-publish " NORRA_VERSION);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  if (arguments.printsTopic) {
    std::printf("%s\n", fleet::topicOf(arguments.desktop, "interactions").c_str());
    return 0;
  }
  mosquitto_lib_init();
  const int status = publish(arguments);
  mosquitto_lib_cleanup();
  return status;
}
