#include <gmock/gmock.h>

#include "Platform/Simulated/Desktop.h"

namespace norra::simulated {
namespace {

using testing::ElementsAre;

constexpr ProcessIdentifier notes = 501;
constexpr ProcessIdentifier nobody = 999;

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    desktop_.add("notesRoot", {.process = notes, .attributes = {{"AXRole", "AXApplication"}}});
    desktop_.add({.process = notes, .localizedName = "Notes", .element = ElementReference{"notesRoot"}});
  }

  std::unique_ptr<AXObserver> observe(const std::string& as, ProcessIdentifier process = notes) {
    auto observer = platform_.accessibility.createObserver(
        process, [this, as](const AXUIElement& /*element*/, std::string_view name) {
          heard_.push_back(as + " " + std::string(name));
        });
    return std::move(observer.value);
  }

  std::vector<std::string> heard_;
  Desktop desktop_;
  Platform platform_ = desktop_.platform();
};

TEST_F(DesktopTest, AHitTestFindsTheFrontmostEntryWithoutItsRightAndBottomEdges) {
  const auto back = desktop_.add("back", {});
  const auto front = desktop_.add("front", {});
  desktop_.setScreen({{{0, 0, 10, 10}, {"back"}}, {{0.7, 5, 2.5, 5}, {"front"}}});
  const auto at = [&](float x, float y) {
    return platform_.accessibility.createSystemWide().primitives().copyElementAtPosition(x, y).value;
  };
  EXPECT_EQ(at(0, 0), back);
  EXPECT_EQ(at(0.7F, 5), front);
  EXPECT_EQ(at(3.2F, 5), back);
  EXPECT_EQ(at(9.5F, 9.5F), back);
  EXPECT_EQ(at(10, 9), std::nullopt);
  EXPECT_EQ(at(9, 10), std::nullopt);
}

TEST_F(DesktopTest, ARoleIsDescribedWithItsSubroleFirst) {
  Desktop desktop({.roleDescriptions = {{"AXButton", "button"}, {"AXButton/AXClose", "close button"}}});
  const auto element = desktop.accessibility().createSystemWide();
  EXPECT_EQ(element.primitives().roleDescription("AXButton", "AXClose"), "close button");
  EXPECT_EQ(element.primitives().roleDescription("AXButton", "AXZoom"), "button");
  EXPECT_EQ(element.primitives().roleDescription("AXButton", std::nullopt), "button");
  EXPECT_EQ(element.primitives().roleDescription("AXRow", std::nullopt), std::nullopt);
}

TEST_F(DesktopTest, NotificationsReachThoseWhoRegisteredThemAndListen) {
  const auto field = desktop_.add("field", {.process = notes, .notificationErrors = {{"Refused", -25204}}});
  const auto first = observe("first");
  const auto second = observe("second");
  const auto deaf = observe("deaf");
  first->addSourceToMainRunLoop();
  second->addSourceToMainRunLoop();
  for (auto* observer : {second.get(), first.get(), deaf.get()}) {
    EXPECT_EQ(observer->addNotification(field, "Changed"), 0);
    EXPECT_EQ(observer->addNotification(field, "Refused"), -25204);
  }
  desktop_.notify("field", "Changed");
  desktop_.notify("field", "Refused");
  desktop_.notify("notesRoot", "Changed");
  EXPECT_THAT(heard_, ElementsAre("first Changed", "second Changed"));
  EXPECT_EQ(first->removeNotification(field, "Changed"), 0);
  EXPECT_EQ(first->removeNotification(field, "Changed"), axError::notificationNotRegistered);
  EXPECT_EQ(first->removeNotification(field, "Refused"), axError::notificationNotRegistered);
  desktop_.notify("field", "Changed");
  EXPECT_EQ(heard_.size(), 3U);
}

TEST_F(DesktopTest, AForcedNotificationGoesByTheProcessAlone) {
  const auto ownerless = desktop_.add("ownerless", {});
  const auto ofNotes = observe("notes");
  const auto ofNobody = observe("nobody", nobody);
  ofNotes->addSourceToMainRunLoop();
  ofNobody->addSourceToMainRunLoop();
  ofNobody->addNotification(platform_.accessibility.createApplication(notes), "Odd");
  desktop_.forceNotification("notesRoot", "Odd");
  desktop_.forceNotification("ownerless", "Odd");
  EXPECT_THAT(heard_, ElementsAre("notes Odd"));
}

TEST_F(DesktopTest, ADisabledTapHearsOnlyThatItIsDisabled) {
  const auto clicks = platform_.eventTaps.createEventTap(1U << 2U, [this](const CGEvent& event) {
    heard_.push_back(std::to_string(static_cast<std::uint32_t>(event.type)));
  });
  clicks->addSourceToMainRunLoop();
  clicks->enable();
  desktop_.disableTaps(CGEventType::tapDisabledByTimeout);
  desktop_.click({0, 0});
  EXPECT_THAT(heard_, ElementsAre("4294967294"));
  clicks->enable();
  desktop_.click({0, 0});
  EXPECT_EQ(heard_.back(), "2");
}

}  // namespace
}  // namespace norra::simulated
