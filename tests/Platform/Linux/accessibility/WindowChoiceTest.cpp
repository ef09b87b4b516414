// Which of an application's top-level accessibles is taken for the window under the pointer.
#include <gmock/gmock.h>

#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr auto visible = bit(AtspiState::visible);
constexpr auto active = bit(AtspiState::active);

class WindowChoice : public FakeApplicationTest {
 protected:
  WindowChoice() : FakeApplicationTest("Qt", "5.15.8") {}

  void setWindows(FakeElement first, FakeElement second) {
    application_.set("root",
                     {.role = AtspiRole::application, .interfaces = {"Application"}, .children = {"first", "second"}});
    application_.set("first", std::move(first));
    application_.set("second", std::move(second));
  }

  static FakeElement frame(const std::string& title, std::uint64_t states = visible) {
    return {.role = AtspiRole::frame, .name = title, .states = states, .parent = "root", .extents = {0, 0, 100, 100}};
  }

  AtspiReference at(std::uint32_t window, const std::string& title) {
    elements_.epoch.begin();
    windows_.pointed = TestWindows::ofProcess(getpid(), {0, 0, 100, 100}, title);
    windows_.pointed->window = window;
    return elements_.pointed.at({10, 20});
  }
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
  windows_.active->window = 2;
  EXPECT_EQ(at(1, "Ledger"), reference("first"));
  EXPECT_EQ(at(2, "Ledger"), reference("second"));
}

}  // namespace
}  // namespace norra::linux_desktop
