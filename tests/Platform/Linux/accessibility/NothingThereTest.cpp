// Where a hit test finds nothing, the log says why.
#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"
#include "tests/RecordingSink.h"

namespace norra::linux_desktop {
namespace {

class OneWindow final : public WindowsOnScreen {
 public:
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint) override { return window; }
  std::optional<WindowOnScreen> activeWindow() override { return window; }

  std::optional<WindowOnScreen> window;
};

class NothingThere : public testing::Test {
 protected:
  void setProcess(ProcessIdentifier process) {
    windows_.window = WindowOnScreen{.window = 1,
                                     .process = process,
                                     .frame = {0, 0, 100, 100},
                                     .client = {0, 0, 100, 100},
                                     .shadow = {},
                                     .title = "Window"};
  }

  std::string reason() {
    EXPECT_EQ(elements_.handles.systemWide().primitives().copyElementAtPosition(10, 20.4F).value, std::nullopt);
    const auto texts = log_.texts(LogLevel::debug);
    return texts.empty() ? "none" : texts.back();
  }

  RecordingSink log_;
  PrivateAccessibilityBus bus_;
  FakeApplication application_;
  OneWindow windows_;
  TestElements elements_{windows_};
};

TEST_F(NothingThere, IsExplained) {
  const std::string process = "the application (process " + std::to_string(getpid()) + ")";
  const std::string click = "A click at 10, 20 gives no report: ";
  EXPECT_EQ(reason(), click + "no window lies there");
  setProcess(0);
  EXPECT_EQ(reason(), click + "its window does not say which process it belongs to");
  setProcess(1);
  EXPECT_EQ(reason(), click + "the application (process 1) is not on the accessibility bus");
  setProcess(getpid());
  EXPECT_EQ(reason(), click + process + " has no accessible element there");
  application_.setSilent(true);
  elements_.epoch.begin();
  reason();
  EXPECT_EQ(reason(), click + process + " did not answer in time and is left alone for a while");
}

}  // namespace
}  // namespace norra::linux_desktop
