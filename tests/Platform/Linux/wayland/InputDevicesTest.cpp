// Recorded bytes of input devices, through pipes.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/wayland/InputDevices.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;

class RecordedDevice {
 public:
  explicit RecordedDevice(std::filesystem::path path) : path_(std::move(path)) {
    mkfifo(path_.c_str(), 0600);
    descriptor_ = open(path_.c_str(), O_RDWR | O_NONBLOCK);
  }
  ~RecordedDevice() { takeAway(); }

  void tell(std::uint16_t type, std::uint16_t code, std::int32_t value) const {
    const input_event event{{}, type, code, value};
    ASSERT_EQ(write(descriptor_, &event, sizeof(event)), sizeof(event));
  }
  void takeAway() {
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
    unlink(path_.c_str());
  }

 private:
  const std::filesystem::path path_;
  int descriptor_ = -1;
};

class InputDevicesTest : public testing::Test {
 protected:
  void open() {
    devices = std::make_unique<InputDevices>(loop.event(), folder.path(), [this](const InputKey& key) {
      seen.emplace_back(key.code, static_cast<int>(key.action));
    });
  }
  bool serve(std::size_t count) {
    return serveUntil(loop.event(), [&] { return seen.size() >= count; });
  }

  EventLoop loop;
  TemporaryFolder folder;
  std::vector<std::pair<int, int>> seen;
  std::unique_ptr<InputDevices> devices;
};

TEST_F(InputDevicesTest, TellKeysAndButtonsAndNothingElse) {
  const RecordedDevice mouse(folder.path() / "event3");
  const RecordedDevice other(folder.path() / "mouse0");
  open();
  other.tell(EV_KEY, BTN_RIGHT, 1);
  mouse.tell(EV_REL, REL_X, 1);
  mouse.tell(EV_KEY, BTN_LEFT, 1);
  mouse.tell(EV_SYN, SYN_REPORT, 0);
  mouse.tell(EV_KEY, BTN_LEFT, 0);
  mouse.tell(EV_KEY, KEY_A, 2);
  mouse.tell(EV_KEY, KEY_A, 7);
  mouse.tell(EV_KEY, KEY_B, 1);
  ASSERT_TRUE(serve(4));
  EXPECT_THAT(seen,
              ElementsAre(std::pair(BTN_LEFT, 1), std::pair(BTN_LEFT, 0), std::pair(KEY_A, 2), std::pair(KEY_B, 1)));
}

TEST_F(InputDevicesTest, ComeAndGo) {
  RecordedDevice first(folder.path() / "event0");
  open();
  first.tell(EV_KEY, KEY_A, 1);
  ASSERT_TRUE(serve(1));
  first.takeAway();
  const RecordedDevice second(folder.path() / "event0");
  ASSERT_TRUE(serveUntil(loop.event(), [&] {
    if (seen.size() == 1) second.tell(EV_KEY, KEY_C, 1);
    return seen.size() > 1;
  }));
  EXPECT_EQ(seen.back(), std::pair(KEY_C, 1));
}

TEST_F(InputDevicesTest, AreReadableWhereAnyIs) {
  EXPECT_FALSE(InputDevices::mayRead(folder.path()));
  EXPECT_FALSE(InputDevices::mayRead(folder.path() / "none"));
  const RecordedDevice device(folder.path() / "event0");
  EXPECT_TRUE(InputDevices::mayRead(folder.path()));
}

}  // namespace
}  // namespace norra::linux_desktop
