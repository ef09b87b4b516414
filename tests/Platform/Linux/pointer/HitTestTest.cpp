// Which element is found at a point, where toolkits count in other pixels or stop too early.
#include <gmock/gmock.h>

#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr auto shown = bit(AtspiState::visible) | bit(AtspiState::showing);
using Place = std::array<std::int32_t, 4>;

class HitTest : public testing::Test {
 protected:
  // With a hit test that knows nothing but the window.
  void open(const std::string& toolkit, ScreenRectangle client) {
    application_.emplace(toolkit, "4.8.3");
    windows_.pointed = TestWindows::ofProcess(getpid(), client, "Ledger");
    windows_.pointed->window = ++window_;
    application_->answerWith("GetAccessibleAtPoint", "(so)", "", AtspiReference::nullPath);
    application_->set("root", {.role = AtspiRole::application, .children = {"frame"}});
  }
  void add(const std::string& key, AtspiRole role, Place place, std::vector<std::string> children = {},
           std::uint64_t states = shown) {
    auto& element = elements_[key];
    element = {.role = role, .states = states, .children = std::move(children), .extents = place};
    application_->set(key, element);
  }
  AtspiReference at(CGPoint point) {
    read_.epoch.begin();
    return read_.pointed.at(point);
  }
  AtspiReference reference(const std::string& key) const { return application_->reference(key); }

  PrivateAccessibilityBus bus_;
  std::optional<FakeApplication> application_;
  std::map<std::string, FakeElement> elements_;
  std::uint32_t window_ = 0;
  TestWindows windows_;
  TestElements read_{windows_};
};

TEST_F(HitTest, CountsInThePixelsOfTheApplication) {
  struct Row {
    const char* toolkit;
    ScreenRectangle window;
    Place own;  // of the window, in the application's pixels
    Place button;
    CGPoint point;  // in the button, in the screen's
  };
  const Row rows[] = {
      {"Qt", {0, 0, 400, 200}, {0, 0, 400, 200}, {100, 50, 100, 50}, {150, 75}},
      {"Qt", {300, 90, 600, 300}, {200, 60, 400, 200}, {300, 110, 100, 50}, {500, 200}},
      {"Qt", {1000, 400, 800, 400}, {500, 200, 400, 200}, {600, 250, 100, 50}, {1390, 590}},
      // The second of two screens begins at the same place in both kinds of pixels.
      {"Qt", {1480, 100, 400, 200}, {1380, 50, 200, 100}, {1430, 75, 50, 25}, {1600, 170}},
      // With a border of the toolkit's own; places are those in the window.
      {"GTK", {100, 100, 820, 420}, {0, 0, 400, 200}, {100, 50, 100, 50}, {460, 260}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.toolkit << " " << row.window.x << " " << row.window.width);
    open(row.toolkit, row.window);
    add("frame", AtspiRole::frame, row.own, {"button"});
    add("button", AtspiRole::pushButton, row.button);
    for (int again = 0; again < 2; ++again) EXPECT_EQ(at(row.point), reference("button"));
    EXPECT_NE(at({row.point.x - 250, row.point.y}), reference("button"));
    application_.reset();
    read_.session.processes.clear();
  }
}

TEST_F(HitTest, GoesOnFromAnAnswerThatHoldsMore) {
  open("Qt", {0, 0, 400, 200});
  add("frame", AtspiRole::frame, {0, 0, 400, 200}, {"pane", "hidden"});
  add("pane", AtspiRole::scrollPane, {0, 0, 400, 200}, {"below", "above"});
  add("below", AtspiRole::pushButton, {0, 0, 100, 50});
  add("above", AtspiRole::pushButton, {50, 0, 100, 50});
  add("hidden", AtspiRole::pushButton, {0, 0, 400, 200}, {}, bit(AtspiState::visible));
  EXPECT_EQ(at({10, 10}), reference("below"));
  EXPECT_EQ(at({60, 10}), reference("above"));
  EXPECT_EQ(at({300, 100}), reference("pane"));
}

// Whoever asks what is no table for its headers makes it complain.
TEST_F(HitTest, AsksOnlyTablesForTheirHeaders) {
  open("Qt", {0, 0, 400, 200});
  add("frame", AtspiRole::frame, {0, 0, 400, 200}, {"table"});
  add("table", AtspiRole::table, {0, 0, 400, 200}, {"cell"});
  add("cell", AtspiRole::tableCell, {0, 20, 400, 20});
  add("header", AtspiRole::columnHeader, {0, 0, 400, 20});
  application_->answerWithElement("GetAccessibleAtPoint", "table");
  application_->answerWithElement("GetColumnHeader", "header");
  application_->answerWith("NColumns", "v", "i", 1);
  EXPECT_EQ(at({10, 10}), reference("table"));
  EXPECT_EQ(application_->calls("GetColumnHeader") + application_->calls("NColumns"), 0);
  elements_["table"].interfaces = {"Table"};
  application_->set("table", elements_["table"]);
  EXPECT_EQ(at({10, 10}), reference("header"));
  EXPECT_EQ(at({10, 30}), reference("cell"));
}

TEST_F(HitTest, FindsItemsOfSwingWhereTheirMenuLies) {
  open("J2SE-access-bridge", {0, 0, 400, 200});
  add("frame", AtspiRole::frame, {-1, -1, -1, -1}, {"pane"});
  add("pane", AtspiRole::layeredPane, {0, 0, 400, 200}, {"open", "content", "menu"});
  add("open", AtspiRole::panel, {0, 20, 80, 44}, {"popup"});
  add("popup", AtspiRole::popupMenu, {0, 20, 80, 44}, {"first", "second"});
  add("content", AtspiRole::panel, {0, 20, 400, 180}, {"button"});
  add("menu", AtspiRole::menu, {0, 0, 80, 20}, {"first", "second"});
  add("first", AtspiRole::menuItem, {1, 3, 78, 20});
  add("second", AtspiRole::menuItem, {1, 23, 78, 20});
  add("button", AtspiRole::pushButton, {0, 20, 400, 180});
  EXPECT_EQ(at({40, 30}), reference("first"));
  EXPECT_EQ(at({40, 50}), reference("second"));
  EXPECT_EQ(at({40, 10}), reference("menu"));
  EXPECT_EQ(at({200, 50}), reference("button"));
}

}  // namespace
}  // namespace norra::linux_desktop
