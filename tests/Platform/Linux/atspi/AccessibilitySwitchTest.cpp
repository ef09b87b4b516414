// The switch among several services of one session, and where it needs nobody to set it.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <optional>
#include <thread>

#include "Platform/Linux/atspi/AccessibilitySwitch.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {
namespace {

enum class Kind { setByHand, followsListeners };

/// Has the switch, off at first.
class Launcher {
 public:
  explicit Launcher(Kind kind) {
    sd_bus_open_user(&bus_);
    sd_bus_add_object_vtable(bus_, nullptr, "/org/a11y/bus", "org.a11y.Status",
                             kind == Kind::setByHand ? setByHand : followsListeners, this);
    sd_bus_request_name(bus_, "org.a11y.Bus", 0);
    worker_ = std::jthread([this](const std::stop_token& stop) {
      while (!stop.stop_requested() && sd_bus_process(bus_, nullptr) >= 0) sd_bus_wait(bus_, 10'000);
    });
  }
  ~Launcher() {
    worker_ = {};
    sd_bus_flush_close_unref(bus_);
  }
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;

  bool isOn() const { return isOn_; }
  int timesSet() const { return timesSet_; }
  int timesAsked() const { return timesAsked_; }

 private:
  static int answer(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self, sd_bus_error*) {
    ++static_cast<Launcher*>(self)->timesAsked_;
    return sd_bus_message_append(reply, "b", static_cast<Launcher*>(self)->isOn_ ? 1 : 0);
  }
  static int set(sd_bus*, const char*, const char*, const char*, sd_bus_message* value, void* self, sd_bus_error*) {
    int isOn = 0;
    sd_bus_message_read(value, "b", &isOn);
    static_cast<Launcher*>(self)->isOn_ = isOn != 0;
    ++static_cast<Launcher*>(self)->timesSet_;
    return 0;
  }
  static constexpr sd_bus_vtable setByHand[] = {
      SD_BUS_VTABLE_START(0), SD_BUS_WRITABLE_PROPERTY("IsEnabled", "b", answer, set, 0, 0),
      SD_BUS_PROPERTY("ScreenReaderEnabled", "b", answer, 0, 0), SD_BUS_VTABLE_END};
  static constexpr sd_bus_vtable followsListeners[] = {
      SD_BUS_VTABLE_START(0), SD_BUS_WRITABLE_PROPERTY("IsEnabled", "b", answer, set, 0, 0), SD_BUS_VTABLE_END};
  sd_bus* bus_ = nullptr;
  std::atomic<bool> isOn_ = false;
  std::atomic<int> timesSet_ = 0;
  std::atomic<int> timesAsked_ = 0;
  std::jthread worker_;  // the only one that uses the bus while it runs
};

class AccessibilitySwitchTest : public testing::Test {
 protected:
  AccessibilitySwitchTest() { setenv("XDG_RUNTIME_DIR", runtimeFolder.path().c_str(), 1); }

  /// One that knows how the switch stands.
  void start(std::optional<AccessibilitySwitch>& service, const Launcher& launcher) {
    const int before = launcher.timesAsked();
    service.emplace(loop.event());
    ASSERT_TRUE(serveUntil(loop.event(), [&] { return launcher.timesAsked() == before + 2; }));
    awaitAnswersBefore();
    while (sd_event_run(loop.event(), 0) > 0) {
    }
    ASSERT_TRUE(serveUntil(loop.event(), [&] { return launcher.isOn(); }));
  }

  /// When the launcher has answered this, what it answered before has arrived too.
  static void awaitAnswersBefore() {
    sd_bus* client = nullptr;
    sd_bus_open_user(&client);
    int isOn = 0;
    sd_bus_get_property_trivial(client, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Status", "IsEnabled", nullptr, 'b',
                                &isOn);
    sd_bus_flush_close_unref(client);
  }

  TemporaryFolder runtimeFolder;
  PrivateBus bus;
  EventLoop loop;
};

TEST_F(AccessibilitySwitchTest, TheLastOfSeveralServicesPutsItBack) {
  const Launcher launcher(Kind::setByHand);
  std::optional<AccessibilitySwitch> first, second;
  start(first, launcher);
  start(second, launcher);
  first.reset();
  EXPECT_TRUE(launcher.isOn()) << "the second needs it";
  second.reset();
  EXPECT_FALSE(launcher.isOn());
  start(first, launcher);
  first.reset();
  EXPECT_FALSE(launcher.isOn()) << "what was put back is forgotten";
}

TEST_F(AccessibilitySwitchTest, IsLeftAloneWhereItFollowsThoseWhoListen) {
  const Launcher launcher(Kind::followsListeners);
  {
    const AccessibilitySwitch service(loop.event());
    while (sd_event_run(loop.event(), 200'000) > 0) {
    }
  }
  EXPECT_EQ(launcher.timesSet(), 0);
}

}  // namespace
}  // namespace norra::linux_desktop
