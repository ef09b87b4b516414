// Where a hit test finds nothing, the log says why.
#include <gmock/gmock.h>

#include "tests/Platform/Linux/TestElements.h"
#include "tests/RecordingSink.h"

namespace norra::linux_desktop {
namespace {

class NothingThere : public FakeApplicationTest {
 protected:
  std::string reason(std::optional<WindowOnScreen> window) {
    windows_.pointed = std::move(window);
    EXPECT_EQ(elements_.handles.systemWide().primitives().copyElementAtPosition(10, 20.4F).value, std::nullopt);
    const auto texts = log_.texts(LogLevel::debug);
    return texts.empty() ? "none" : texts.back();
  }
  std::string reasonIn(ProcessIdentifier process) {
    return reason(TestWindows::ofProcess(process, {0, 0, 100, 100}, "Window"));
  }

  RecordingSink log_;
};

TEST_F(NothingThere, IsExplained) {
  const std::string process = "the application (process " + std::to_string(getpid()) + ")";
  const std::string click = "A click at 10, 20 gives no report: ";
  EXPECT_EQ(reason(std::nullopt), click + "no window lies there");
  EXPECT_EQ(reasonIn(0), click + "its window does not say which process it belongs to");
  EXPECT_EQ(reasonIn(1), click + "the application (process 1) is not on the accessibility bus");
  EXPECT_EQ(reasonIn(getpid()), click + process + " has no accessible element there");
  application_.setSilent(true);
  elements_.epoch.begin();
  reasonIn(getpid());
  EXPECT_EQ(reasonIn(getpid()), click + process + " did not answer in time and is left alone for a while");
}

}  // namespace
}  // namespace norra::linux_desktop
