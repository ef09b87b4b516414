#include <gmock/gmock.h>
#include <xcb/xtest.h>

#include <utility>

#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/x11/X11EventTaps.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace norra::linux_desktop {
namespace {

using namespace modifierFlag;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

constexpr CGEventMask allEvents = maskOf(CGEventType::leftMouseUp) | maskOf(CGEventType::rightMouseUp) |
                                  maskOf(CGEventType::keyDown) | maskOf(CGEventType::otherMouseUp);

/// One X server for all tests of the program.
class X11EventTapsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { display = std::make_unique<PrivateDisplay>(); }
  static void TearDownTestSuite() { display.reset(); }

  void SetUp() override {
    user("setxkbmap us -option");
    taps = X11EventTaps::open(loop.event(), display->connect());
    ASSERT_NE(taps, nullptr);
  }

  /// When this returns, all that came of it has been served.
  void user(const std::string& command) {
    serveWhile(loop.event(), command);
    serveAll();
  }

  /// By keycode; xdotool would choose the layout itself.
  void press(std::uint8_t key) { fake(XCB_KEY_PRESS, key); }
  void release(std::uint8_t key) { fake(XCB_KEY_RELEASE, key); }
  void fake(std::uint8_t type, std::uint8_t key) {
    xcb_test_fake_input(hands->get(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  }

  /// Whoever gets an answer of the server then finds that it has sent all its events.
  void serveAll() {
    settle(*hands);
    while (sd_event_run(loop.event(), 0) > 0) {
    }
  }

  std::unique_ptr<EventTap> tapInto(std::vector<CGEvent>& seen, CGEventMask events = allEvents) {
    auto tap = taps->createEventTap(events, [&seen](const CGEvent& event) { seen.push_back(event); });
    tap->addSourceToMainRunLoop();
    tap->enable();
    return tap;
  }

  /// What a new tap sees while the user does this.
  std::vector<CGEvent> eventsOf(const std::string& command) {
    std::vector<CGEvent> seen;
    const auto tap = tapInto(seen);
    user(command);
    return seen;
  }

  void exchangeLeftAndRightButton() const {
    const auto connection = display->connect();
    const auto mapping = connection->await<&xcb_get_pointer_mapping_reply>(xcb_get_pointer_mapping(connection->get()));
    auto* buttons = xcb_get_pointer_mapping_map(mapping.get());
    std::swap(buttons[0], buttons[2]);
    const auto length = static_cast<std::uint8_t>(xcb_get_pointer_mapping_map_length(mapping.get()));
    connection->await<&xcb_set_pointer_mapping_reply>(xcb_set_pointer_mapping(connection->get(), length, buttons));
  }

  NSEvent keyOf(const std::string& command) {
    const auto events = eventsOf(command);
    return events.empty() ? NSEvent{} : events.back().keyEvent.value_or(NSEvent{});
  }

  static inline std::unique_ptr<PrivateDisplay> display;
  const std::unique_ptr<X11Connection> hands = display->connect();
  EventLoop loop;
  std::unique_ptr<X11EventTaps> taps;
};

std::vector<CGEventType> typesOf(const std::vector<CGEvent>& events) {
  std::vector<CGEventType> types;
  for (const auto& event : events) types.push_back(event.type);
  return types;
}

/// Of the presses that have any.
std::vector<std::string> charactersOf(const std::vector<CGEvent>& events) {
  std::vector<std::string> all;
  for (const auto& event : events) {
    if (event.keyEvent && event.keyEvent->charactersIgnoringModifiers) {
      all.push_back(*event.keyEvent->charactersIgnoringModifiers);
    }
  }
  return all;
}

auto click(CGEventType type, double x, double y) {
  return testing::AllOf(Field(&CGEvent::type, type), Field(&CGEvent::location, CGPoint{x, y}));
}

auto key(std::optional<std::string> characters, std::uint64_t flags) {
  return testing::AllOf(Field(&NSEvent::charactersIgnoringModifiers, characters),
                        Field(&NSEvent::modifierFlags, flags));
}

auto specialKeyPress(std::uint32_t codePoint, std::uint64_t flags) {
  return testing::AllOf(Field(&NSEvent::specialKey, NSEvent::SpecialKey{codePoint}),
                        Field(&NSEvent::modifierFlags, flags));
}

TEST_F(X11EventTapsTest, ReportsTheReleaseOfEveryButtonWhereItHappens) {
  EXPECT_THAT(eventsOf("xdotool mousemove 10 20 click 1"), ElementsAre(click(CGEventType::leftMouseUp, 10, 20)));
  EXPECT_THAT(eventsOf("xdotool mousemove 1279 899 click 2"), ElementsAre(click(CGEventType::otherMouseUp, 1279, 899)));
  EXPECT_THAT(eventsOf("xdotool mousemove 0 0 click 3"), ElementsAre(click(CGEventType::rightMouseUp, 0, 0)));
  EXPECT_THAT(eventsOf("xdotool click 8 click 9"), SizeIs(2));
}

TEST_F(X11EventTapsTest, KnowsThePlacesOfClicksThatWaitedToBeRead) {
  std::vector<CGEvent> seen;
  const auto tap = tapInto(seen);
  ChildProgram({"xdotool", "mousemove", "10", "20", "click", "1", "mousemove", "30", "40", "click", "4", "click", "3",
                "mousemove", "500", "600"})
      .wait();
  serveAll();
  EXPECT_THAT(seen, ElementsAre(click(CGEventType::leftMouseUp, 10, 20), click(CGEventType::rightMouseUp, 30, 40)));
}

TEST_F(X11EventTapsTest, TakesScrollingForNoClick) {
  EXPECT_THAT(eventsOf("xdotool click 4 click 5 click 6 click 7"), IsEmpty());
}

TEST_F(X11EventTapsTest, ReportsAPressedButtonOnlyWhenItIsReleased) {
  EXPECT_THAT(eventsOf("xdotool mousemove 10 20 mousedown 1 mousemove 300 400 mouseup 1"),
              ElementsAre(click(CGEventType::leftMouseUp, 300, 400)));
}

TEST_F(X11EventTapsTest, KnowsTheButtonsOfALeftHandedUser) {
  exchangeLeftAndRightButton();
  EXPECT_THAT(typesOf(eventsOf("xdotool click 1 click 3")),
              ElementsAre(CGEventType::rightMouseUp, CGEventType::leftMouseUp));
  exchangeLeftAndRightButton();
  EXPECT_THAT(typesOf(eventsOf("xdotool click 1 click 3")),
              ElementsAre(CGEventType::leftMouseUp, CGEventType::rightMouseUp));
}

TEST_F(X11EventTapsTest, FollowsHeldModifiers) {
  EXPECT_THAT(keyOf("xdotool key ctrl+c"), key("c", control));
  EXPECT_THAT(keyOf("xdotool key ctrl+shift+c"), key("C", control | shift));
  EXPECT_THAT(keyOf("xdotool key super+l"), key("l", command));
  EXPECT_THAT(keyOf("xdotool key alt+F4"), specialKeyPress(0xF707, option | function));
  EXPECT_THAT(keyOf("xdotool key shift+Tab"), specialKeyPress(0x19, shift));
}

TEST_F(X11EventTapsTest, FollowsCapsLock) {
  EXPECT_THAT(keyOf("xdotool key Caps_Lock key ctrl+c"), key("c", control | capsLock));
  EXPECT_THAT(keyOf("xdotool key Caps_Lock key ctrl+c"), key("c", control));
}

TEST_F(X11EventTapsTest, ReportsModifiersAsPressesOfNothing) {
  const auto events = eventsOf("xdotool keydown ctrl keyup ctrl");
  ASSERT_EQ(events.size(), 1);
  EXPECT_THAT(*events.front().keyEvent, key(std::nullopt, 0));
}

TEST_F(X11EventTapsTest, FollowsAChangeOfTheLayout) {
  std::vector<CGEvent> seen;
  const auto tap = tapInto(seen);
  for (const auto* command : {"setxkbmap de", "xdotool key ctrl+29", "setxkbmap us", "xdotool key ctrl+29"}) {
    user(command);
  }
  EXPECT_THAT(charactersOf(seen), ElementsAre("z", "y"));
}

TEST_F(X11EventTapsTest, FollowsTheGroupOfTheLayout) {
  constexpr std::uint8_t control = 37, keyC = 54, menu = 135;
  user("setxkbmap -layout us,ru -option grp:menu_toggle");
  std::vector<CGEvent> seen;
  const auto tap = tapInto(seen);
  for (const auto key : {control, keyC}) press(key);
  release(keyC);
  press(menu);
  release(menu);
  press(keyC);
  for (const auto key : {keyC, control}) release(key);
  serveAll();
  EXPECT_THAT(charactersOf(seen), ElementsAre("c", "с"));
}

TEST_F(X11EventTapsTest, MarksAPressWithoutAReleaseBeforeAsARepeat) {
  user("xset r on");
  std::vector<bool> repeats;
  for (const auto& event : eventsOf("xdotool keydown a keydown a keyup a keydown a keyup a")) {
    repeats.push_back(event.keyEvent->isARepeat);
  }
  EXPECT_THAT(repeats, ElementsAre(false, true, false));
}

TEST_F(X11EventTapsTest, SeesThroughTheGrabOfAnOpenMenu) {
  const auto other = display->connect();
  const auto status = other->await<&xcb_grab_pointer_reply>(
      xcb_grab_pointer(other->get(), 0, other->root(), XCB_EVENT_MASK_BUTTON_RELEASE, XCB_GRAB_MODE_ASYNC,
                       XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME));
  const auto keyStatus = other->await<&xcb_grab_keyboard_reply>(
      xcb_grab_keyboard(other->get(), 0, other->root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  ASSERT_EQ(status->status, XCB_GRAB_STATUS_SUCCESS);
  ASSERT_EQ(keyStatus->status, XCB_GRAB_STATUS_SUCCESS);
  EXPECT_THAT(typesOf(eventsOf("xdotool click 1 key Return")),
              ElementsAre(CGEventType::leftMouseUp, CGEventType::keyDown));
}

TEST_F(X11EventTapsTest, DeliversOnlyTheButtonsThatATapWants) {
  std::vector<CGEvent> seen;
  const auto tap = tapInto(seen, maskOf(CGEventType::rightMouseUp));
  user("xdotool click 1 click 3 key a");
  EXPECT_THAT(typesOf(seen), ElementsAre(CGEventType::rightMouseUp));
}

TEST_F(X11EventTapsTest, LetsACallbackEndItsTapAndServesTheOthers) {
  std::vector<CGEvent> seen;
  int calls = 0;
  std::unique_ptr<EventTap> once = taps->createEventTap(allEvents, [&](const CGEvent&) {
    ++calls;
    once.reset();
  });
  once->addSourceToMainRunLoop();
  once->enable();
  const auto other = tapInto(seen);
  user("xdotool click 1 click 1");
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(seen, SizeIs(2));
}

}  // namespace
}  // namespace norra::linux_desktop
