#include <gmock/gmock.h>

#include "Platform/Simulated/Desktop.h"

namespace norra::simulated {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr ProcessIdentifier notes = 501;
constexpr ProcessIdentifier mail = 502;
constexpr ProcessIdentifier nobody = 999;

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    desktop_.add("notesRoot", {.process = notes, .attributes = {{"AXRole", "AXApplication"}}});
    desktop_.add({.process = notes, .localizedName = "Notes", .element = ElementReference{"notesRoot"}});
    desktop_.add({.process = mail, .localizedName = "Mail", .observerError = -25204});
  }

  AXResult<AXAttributeValue> read(const AXUIElement& element, std::string_view attribute = "AXRole") {
    return element.primitives().copyAttributeValue(attribute);
  }

  std::unique_ptr<AXObserver> observe(const std::string& as, ProcessIdentifier process = notes) {
    auto observer = platform_.accessibility.createObserver(
        process, [this, as](const AXUIElement& /*element*/, std::string_view name) {
          heard_.push_back(as + " " + std::string(name));
        });
    return std::move(observer.value);
  }

  std::unique_ptr<EventTap> tap(const std::string& as, CGEventMask mask) {
    return platform_.eventTaps.createEventTap(mask, [this, as](const CGEvent& event) {
      heard_.push_back(as + " " + std::to_string(static_cast<std::uint32_t>(event.type)));
    });
  }

  std::vector<std::string> heard_;
  Desktop desktop_;
  Platform platform_ = desktop_.platform();
};

TEST_F(DesktopTest, ReadsGiveWhatTheElementWasGiven) {
  const auto other = desktop_.add("other", {});
  const auto element = desktop_.add("element", {.process = notes,
                                                .attributes = {{"text", "x"},
                                                               {"parent", ElementReference{"other"}},
                                                               {"nothing", std::monostate{}},
                                                               {"failing", ReadFailure{-25204}}},
                                                .actions = {"AXPress"}});
  EXPECT_EQ(std::get<std::string>(read(element, "text").value), "x");
  EXPECT_EQ(std::get<AXUIElement>(read(element, "parent").value), other);
  EXPECT_EQ(read(element, "nothing").error, 0);
  EXPECT_EQ(read(element, "nothing").value, AXAttributeValue{});
  EXPECT_EQ(read(element, "failing").error, -25204);
  EXPECT_EQ(read(element, "missing").error, axError::attributeUnsupported);
  EXPECT_THAT(element.primitives().copyActionNames().value, ElementsAre("AXPress"));
  EXPECT_EQ(element.primitives().getPid().value, notes);
  EXPECT_EQ(other.primitives().getPid().error, axError::illegalArgument);
}

TEST_F(DesktopTest, AnElementKeepsItsProcessWhenItsReadsFail) {
  const auto destroyed = desktop_.add("destroyed", {.process = mail});
  const auto ofTerminated = desktop_.add("ofTerminated", {.process = notes});
  desktop_.destroy("destroyed");
  desktop_.terminate(notes);
  for (const auto& element :
       {destroyed, ofTerminated, platform_.accessibility.createApplication(notes),
        platform_.accessibility.createApplication(mail), platform_.accessibility.createApplication(nobody)}) {
    const auto& primitives = element.primitives();
    EXPECT_EQ(read(element).error, axError::invalidUIElement);
    EXPECT_EQ(primitives.copyAttributeNames().error, axError::invalidUIElement);
    EXPECT_EQ(primitives.copyActionNames().error, axError::invalidUIElement);
    EXPECT_EQ(primitives.getPid().error, axError::success);
  }
}

TEST_F(DesktopTest, HandlesOfOneElementAreEqual) {
  const auto root = [&](ProcessIdentifier process) { return platform_.accessibility.createApplication(process); };
  EXPECT_EQ(root(notes), root(notes));
  EXPECT_EQ(root(nobody), root(nobody));
  EXPECT_FALSE(root(nobody) == root(mail));
  EXPECT_EQ(platform_.accessibility.createSystemWide(), platform_.accessibility.createSystemWide());
}

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

TEST_F(DesktopTest, AnObserverThatCannotBeMadeIsNull) {
  const auto made = platform_.accessibility.createObserver(mail, [](const auto&, auto) {});
  EXPECT_EQ(made.error, -25204);
  EXPECT_EQ(made.value, nullptr);
}

TEST_F(DesktopTest, ATapGetsWhatItAskedForWhileItIsOn) {
  constexpr CGEventMask leftUp = 1U << 2U;
  constexpr CGEventMask keyDown = 1U << 10U;
  const auto clicks = tap("clicks", leftUp);
  const auto keys = tap("keys", keyDown | leftUp);
  desktop_.click({0, 0});
  EXPECT_THAT(heard_, IsEmpty());
  for (auto* each : {keys.get(), clicks.get()}) {
    each->addSourceToMainRunLoop();
    each->enable();
  }
  desktop_.click({0, 0});
  desktop_.click({0, 0}, PointerButton::other);
  desktop_.pressKey(std::nullopt);
  EXPECT_THAT(heard_, ElementsAre("clicks 2", "keys 2", "keys 10"));
}

TEST_F(DesktopTest, ADisabledTapHearsOnlyThatItIsDisabled) {
  const auto clicks = tap("tap", 1U << 2U);
  clicks->addSourceToMainRunLoop();
  clicks->enable();
  desktop_.disableTaps(CGEventType::tapDisabledByTimeout);
  desktop_.click({0, 0});
  EXPECT_THAT(heard_, ElementsAre("tap 4294967294"));
  clicks->enable();
  desktop_.click({0, 0});
  EXPECT_EQ(heard_.back(), "tap 2");
  clicks->removeSourceFromMainRunLoop();
  desktop_.disableTaps(CGEventType::tapDisabledByUserInput);
  EXPECT_EQ(heard_.size(), 2U);
}

TEST_F(DesktopTest, ActivationsAreAnnouncedToSubscribersInTheirOrder) {
  const auto listen = [&](const std::string& as) {
    return platform_.workspace.onActivation([this, as](const auto& application) {
      heard_.push_back(as + " " + (application ? *application->localizedName : "nobody"));
    });
  };
  const auto first = listen("1");
  auto second = listen("2");
  desktop_.activate(mail);
  second.reset();
  desktop_.activate(std::nullopt);
  desktop_.setFrontmost(notes);
  EXPECT_THAT(heard_, ElementsAre("1 Mail", "2 Mail", "1 nobody"));
  EXPECT_EQ(platform_.workspace.frontmostApplication()->processIdentifier, notes);
}

TEST_F(DesktopTest, ATerminatedApplicationIsNoLongerRunningNorInFront) {
  desktop_.setFrontmost(notes);
  desktop_.terminate(notes);
  EXPECT_FALSE(platform_.workspace.frontmostApplication().has_value());
  EXPECT_FALSE(platform_.workspace.runningApplication(notes).has_value());
  EXPECT_TRUE(platform_.workspace.runningApplication(mail).has_value());
}

TEST_F(DesktopTest, CountsPrimitivesByName) {
  const auto root = platform_.accessibility.createApplication(notes);
  read(root);
  read(root);
  root.primitives().getPid();
  EXPECT_THAT(desktop_.accessibility().takeCalls(),
              ElementsAre(Pair("AXUIElementCopyAttributeValue", 2), Pair("AXUIElementGetPid", 1)));
  EXPECT_THAT(desktop_.accessibility().takeCalls(), IsEmpty());
}

}  // namespace
}  // namespace norra::simulated
