// What GTK 4 tells of the focus and of its widgets, and what it does not.
#include <gmock/gmock.h>

#include "Platform/Linux/following/FocusEvents.h"
#include "Platform/Linux/pointer/WindowMatch.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "tests/Platform/Linux/TestElements.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {
namespace {

class Gtk4Focus : public FakeApplicationTest {
 protected:
  Gtk4Focus() : FakeApplicationTest("GTK", "4.8.3") {
    const auto set = [this](const char* key, std::uint64_t states) {
      application_.set(key, {.role = AtspiRole::text, .states = editable | states, .interfaces = {"Text"}});
    };
    set("page", focusable | bit(AtspiState::multiLine));
    set("search", 0);
    set("row", focusable | bit(AtspiState::selectable));
    set("field", focusable);
    set("notes", bit(AtspiState::multiLine));
  }

  // Sent again until it comes: the bus may not know yet that it is listened to.
  bool isFollowed(const std::string& key, const std::function<void()>& send) {
    const auto turn = [&] {
      send();
      sd_event_run(loop_.event(), 20'000);
      while (sd_event_run(loop_.event(), 0) > 0) {
      }
    };
    turn();
    return repeatUntil([&] { return followed() == reference(key); }, turn);
  }
  AtspiReference followed() {
    elements_.epoch.begin();
    return elements_.focus.settle(reference("page").busName);
  }
  void focus(const char* key, int isGained) { application_.sendEvent(key, "StateChanged", "focused", isGained); }
  void moveCaret(const char* key) { application_.sendEvent(key, "TextCaretMoved", "", 1); }

  static constexpr auto editable = bit(AtspiState::editable);
  static constexpr auto focusable = bit(AtspiState::focusable);

  EventLoop loop_;
  AtspiEvents events_{loop_.event(), elements_.session.shared, [](const std::string&) {}};
  FocusEvents focusEvents_{elements_.focus, events_};
  std::unique_ptr<Registration> listening_ = focusEvents_.listen([](const AtspiReference&) {});
};

TEST_F(Gtk4Focus, IsWhereTheCaretOfAFieldMovesThatGotItUntold) {
  ASSERT_TRUE(isFollowed("page", [this] { focus("page", 1); }));
  for (const auto* untold : {"search", "row"}) {
    EXPECT_TRUE(isFollowed(untold, [&] {
      focus("page", 0);
      moveCaret(untold);
    }));
    EXPECT_TRUE(isFollowed("page", [this] { focus("page", 1); }));
  }
}

// The window in front keeps it, without a word, when the window behind it has set and lost it.
TEST_F(Gtk4Focus, GoesBackToWhatHasNotLostIt) {
  ASSERT_TRUE(isFollowed("field", [this] { focus("field", 1); }));
  ASSERT_TRUE(isFollowed("notes", [this] { focus("notes", 1); }));
  EXPECT_TRUE(isFollowed("field", [this] { focus("notes", 0); }));
}

TEST_F(Gtk4Focus, IsTakenFromNothingElseThatTheApplicationWrites) {
  ASSERT_TRUE(isFollowed("page", [this] { focus("page", 1); }));
  // Told last: by then the others were heard.
  EXPECT_TRUE(isFollowed("search", [this] {
    if (followed() != reference("page")) return;
    moveCaret("field");
    focus("page", 0);
    for (const auto* key : {"field", "notes", "page"}) moveCaret(key);
    moveCaret("search");
  }));
}

TEST_F(Gtk4Focus, StaysWhereItIsWhileNothingLostIt) {
  ASSERT_TRUE(isFollowed("page", [this] { focus("page", 1); }));
  EXPECT_TRUE(isFollowed("field", [this] {
    moveCaret("search");
    focus("field", 1);
    EXPECT_NE(followed(), reference("search"));
  }));
}

class Gtk4 : public FakeApplicationTest {
 protected:
  Gtk4() : FakeApplicationTest("GTK", "4.8.3") {
    elements_.session.applications.of(reference("tab").busName)->noteToolkit(gtk4, true);
  }

  void set(const std::string& key, FakeElement element) {
    elements_.epoch.begin();
    application_.set(key, std::move(element));
  }
};

TEST_F(Gtk4, CallsATabOfLibadwaitaByWhatStandsOnItNotByItsToolTip) {
  set("label", {.role = AtspiRole::label, .name = "log.txt", .states = bit(AtspiState::visible), .parent = "tab"});
  set("tab", {.role = AtspiRole::filler, .name = "AdwTab", .description = "/home/log.txt", .children = {"label"}});
  EXPECT_EQ(text("tab", "AXSubrole"), "AXTabButton");
  EXPECT_EQ(text("tab", "AXTitle"), std::nullopt);
  EXPECT_EQ(text("tab", "AXDescription"), std::nullopt);
}

TEST_F(Gtk4, KnowsByTheClassWhatTheRoleDoesNotSay) {
  set("title", {.role = AtspiRole::filler, .name = "GtkColumnViewTitle"});
  EXPECT_EQ(text("title", "AXSubrole"), "AXSortButton");
  set("filler", {.role = AtspiRole::filler, .name = "GtkBuiltinIcon"});
  EXPECT_EQ(text("filler", "AXRole"), "AXGroup");
  set("grid", {.role = AtspiRole::table, .name = "GtkFlowBox", .interfaces = {"Selection"}});
  EXPECT_EQ(text("grid", "AXRole"), "AXList");
}

// The keyboard focus was not told to have gone into it.
TEST_F(Gtk4, FindsAnOpenPopoverByItsSize) {
  const auto visible = bit(AtspiState::visible);
  set("root", {.role = AtspiRole::application, .children = {"frame"}});
  set("frame", {.role = AtspiRole::frame, .states = visible, .children = {"button"}, .extents = {0, 0, 300, 200}});
  set("button", {.role = AtspiRole::pushButton, .parent = "frame", .children = {"popover"}});
  set("popover", {.role = AtspiRole::menu, .name = "HarbourPopover", .parent = "button", .extents = {10, 20, 80, 60}});
  const auto root = view("root");
  WindowOnScreen window;
  window.overrideRedirect = true;
  window.client = {500, 400, 80, 60};
  EXPECT_EQ(popoverOf(root, window), reference("popover"));
  set("box", {.role = AtspiRole::filler, .parent = "frame", .children = {"label", "clicked"}});
  set("frame", {.role = AtspiRole::frame, .states = visible, .children = {"button", "box"}});
  set("label", {.role = AtspiRole::label, .parent = "box"});
  set("clicked", {.role = AtspiRole::menu, .name = "QuayPopover", .parent = "box", .extents = {10, 20, 80, 60}});
  EXPECT_EQ(popoverOf(view("root"), window, reference("label")), reference("clicked")) << "which that has opened";
  EXPECT_EQ(popoverOf(view("root"), window, reference("popover")), reference("popover")) << "in which that lies";
  window.client = {500, 400, 300, 300};
  EXPECT_TRUE(popoverOf(root, window).isNull());
}

class LaterGtk4 : public FakeApplicationTest {
 protected:
  LaterGtk4() : FakeApplicationTest("GTK", "4.18.6") {}
};

TEST_F(LaterGtk4, FindsNothingInPopoversThatWereClosed) {
  application_.set("frame",
                   {.role = AtspiRole::frame, .children = {"menuButton", "save"}, .extents = {0, 0, 300, 200}});
  application_.set("save", {.role = AtspiRole::pushButton, .parent = "frame", .extents = {0, 40, 300, 40}});
  application_.set("menuButton", {.role = AtspiRole::pushButton, .parent = "frame", .extents = {0, 0, 300, 40}});
  application_.set("closed", {.role = AtspiRole::menu, .parent = "menuButton", .actions = {"default.activate"}});
  application_.set("item", {.role = AtspiRole::menuItem, .parent = "closed", .extents = {0, 40, 300, 40}});
  application_.answerWithElement("GetAccessibleAtPoint", "item");
  const auto frame = view("frame");
  WindowOnScreen window;
  window.client = {0, 0, 300, 200};
  EXPECT_EQ(frame.toolkit().elementAt(frame, {.point = {150, 60}, .window = window}), reference("save"));
}

// Its value would be told as a text that was written.
TEST_F(LaterGtk4, SaysOfAMenuButtonNotThatItsMenuIsOpen) {
  const auto isOpen = bit(AtspiState::checked) | bit(AtspiState::hasPopup) | bit(AtspiState::expandable);
  application_.set("tools", {.role = AtspiRole::toggleButton, .name = "Tools", .states = isOpen});
  EXPECT_EQ(text("tools", "AXRole"), "AXMenuButton");
  EXPECT_FALSE(valueOf<NSNumber>(element("tools"), "AXValue"));
}

}  // namespace
}  // namespace norra::linux_desktop
