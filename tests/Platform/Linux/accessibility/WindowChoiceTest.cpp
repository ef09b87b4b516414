// Which of an application's top-level accessibles is taken for the window under the pointer.
#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint32_t frameRole = 23;
constexpr std::uint32_t rootRole = 75;
constexpr std::array<std::int32_t, 4> place{0, 0, 100, 100};
constexpr std::uint64_t visible = std::uint64_t{1} << 30;
constexpr std::uint64_t active = std::uint64_t{1} << 1;

class TwoWindows final : public WindowsOnScreen {
 public:
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint) override { return pointed; }
  std::optional<WindowOnScreen> activeWindow() override {
    WindowOnScreen window;
    window.window = activeId;
    return window;
  }

  WindowOnScreen pointed;
  std::uint32_t activeId = 0;
};

class WindowChoice : public testing::Test {
 protected:
  void setWindows(FakeElement first, FakeElement second) {
    application_.set("root", {.role = rootRole, .interfaces = {"Application"}, .children = {"first", "second"}});
    application_.set("first", std::move(first));
    application_.set("second", std::move(second));
  }

  static FakeElement frame(const std::string& title, std::uint64_t states = visible) {
    return {.role = frameRole, .name = title, .states = states, .parent = "root", .extents = place};
  }

  AtspiReference at(std::uint32_t window, const std::string& title) {
    elements_.epoch.begin();
    windows_.pointed = {.window = window,
                        .process = getpid(),
                        .frame = {0, 0, 100, 100},
                        .client = {0, 0, 100, 100},
                        .shadow = {},
                        .title = title};
    return elements_.pointed.at({10, 20});
  }

  AtspiReference reference(const std::string& key) const { return application_.reference(key); }

  PrivateAccessibilityBus bus_;
  FakeApplication application_{"Qt", "5.15.8"};
  TwoWindows windows_;
  TestElements elements_{windows_};
};

TEST_F(WindowChoice, IsMadeByTheTitleWhereTwoLieAtTheSamePlace) {
  setWindows(frame("Ledger"), frame("Harbour"));
  EXPECT_EQ(at(1, "Ledger"), reference("first"));
  EXPECT_EQ(at(2, "Harbour"), reference("second"));
}

TEST_F(WindowChoice, IsMadeByThePlaceWhereNoneHasTheTitle) {
  auto other = frame("");
  other.extents = {40, 40, 30, 30};
  setWindows(other, frame(""));
  EXPECT_EQ(at(1, "Harbour"), reference("second"));
}

TEST_F(WindowChoice, IsMadeAnewWhenTheTitleChanges) {
  setWindows(frame("Loading"), frame("Harbour"));
  EXPECT_EQ(at(1, "Loading"), reference("first"));
  EXPECT_EQ(at(1, "Harbour"), reference("second"));
}

TEST_F(WindowChoice, IsMadeByTheActiveStateWhereTitlesAreTheSame) {
  setWindows(frame("Ledger"), frame("Ledger", visible | active));
  windows_.activeId = 2;
  EXPECT_EQ(at(1, "Ledger"), reference("first"));
  EXPECT_EQ(at(2, "Ledger"), reference("second"));
}

}  // namespace
}  // namespace norra::linux_desktop
