// What norra-collect --check says, over a session bus of its own and without a desktop.
#include <gmock/gmock.h>
#include <systemd/sd-bus.h>

#include <array>
#include <cstdlib>
#include <thread>

#include "tests/Client/RunningProgram.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra {
namespace {

using linux_desktop::PrivateBus;
using testing::MatchesRegex;

/// Stands on the bus for the systemd of a session, with an environment of its own.
class SessionManager {
 public:
  explicit SessionManager(std::string variable) : variable_(std::move(variable)) {
    sd_bus_open_user(&bus_);
    sd_bus_add_object_vtable(bus_, nullptr, "/org/freedesktop/systemd1", "org.freedesktop.systemd1.Manager", properties,
                             this);
    sd_bus_request_name(bus_, "org.freedesktop.systemd1", 0);
    worker_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested() && sd_bus_process(bus_, nullptr) >= 0) sd_bus_wait(bus_, 10'000);
    });
  }
  ~SessionManager() {
    worker_ = {};
    sd_bus_flush_close_unref(bus_);
  }
  SessionManager(const SessionManager&) = delete;
  SessionManager& operator=(const SessionManager&) = delete;

 private:
  static int environment(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self,
                         sd_bus_error*) {
    return sd_bus_message_append(reply, "as", 1, static_cast<SessionManager*>(self)->variable_.c_str());
  }
  static constexpr sd_bus_vtable properties[] = {
      SD_BUS_VTABLE_START(0), SD_BUS_PROPERTY("Environment", "as", environment, 0, 0), SD_BUS_VTABLE_END};
  std::string variable_;
  sd_bus* bus_ = nullptr;
  std::jthread worker_;  // the only one that uses the bus while it runs
};

class DesktopCheckTest : public testing::Test {
 protected:
  DesktopCheckTest() {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("XDG_SESSION_TYPE");
  }

  PrivateBus bus{NORRA_SERVICES_FOLDER};
};

TEST_F(DesktopCheckTest, ChecksWhatIsThereAndSaysWhatToDo) {
  RunningProgram check("norra-collect", {"--check"});
  EXPECT_EQ(check.nextLine(), "ready    session bus");
  EXPECT_EQ(check.nextLine(), "ready    service");
  EXPECT_THAT(check.nextLine().value_or(""), MatchesRegex("missing  display .*Run this inside an X11 session.*"));
  EXPECT_EQ(check.waitForEnd(), 1);
}

TEST_F(DesktopCheckTest, ChecksWhichDisplayTheServiceWouldGet) {
  setenv("DISPLAY", ":54321.0", 1);
  const std::vector<std::array<std::string, 2>> rows = {
      {"LANG=C", "missing  service's display   systemd would start the service without DISPLAY\\..*"},
      {"DISPLAY=:0", "limited  service's display   .* for DISPLAY=:0, not :54321.0\\..*"},
      {"DISPLAY=:54321", "ready    service's display"},
  };
  for (const auto& [variable, finding] : rows) {
    const SessionManager manager(variable);
    RunningProgram check("norra-collect", {"--check"});
    for (int before = 0; before < 3; ++before) check.nextLine();
    EXPECT_THAT(check.nextLine().value_or(""), MatchesRegex(finding)) << variable;
    EXPECT_EQ(check.waitForEnd(), 1) << "there is no such X server";
  }
}

TEST_F(DesktopCheckTest, SendsWhoeverHasOnlyWaylandToAnotherSession) {
  setenv("WAYLAND_DISPLAY", "wayland-0", 1);
  RunningProgram check("norra-collect", {"--check"});
  for (int before = 0; before < 2; ++before) check.nextLine();
  EXPECT_THAT(check.nextLine().value_or(""), MatchesRegex("missing  display .*Wayland session.*Log in to an X11.*"));
  EXPECT_EQ(check.waitForEnd(), 1);
}

TEST(DesktopCheck, GivesNoAdviceThatTheMissingBusMakesWrong) {
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  RunningProgram check("norra-collect", {"--check"});
  check.nextLine();
  EXPECT_EQ(check.nextLine(), "missing  service             This cannot be known without the session bus.");
  EXPECT_EQ(check.waitForEnd(), 1);
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

}  // namespace
}  // namespace norra
