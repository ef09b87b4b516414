// What GTK 3 means by its tables, lists and expanders.
#include "Platform/Linux/following/WatchedEvents.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

class Gtk3 : public FakeApplicationTest {
 protected:
  std::string_view selectionOf(const std::string& key) { return selectionNotification(view(key)); }
};

TEST_F(Gtk3, AsksTheTableWhereACellIsThatCannotSay) {
  application_.set("table", {.role = AtspiRole::treeTable, .interfaces = {"Table", "Selection"}, .children = {"cell"}});
  application_.set("cell", {.role = AtspiRole::tableCell, .interfaces = {"TableCell"}, .parent = "table"});
  for (const auto* member : {"GetRowAtIndex", "GetColumnAtIndex", "GetIndexInParent"}) {
    application_.answerWith(member, "i", 0);
  }
  const auto row = read<CFRange>("cell", "AXRowIndexRange");
  const auto column = read<CFRange>("cell", "AXColumnIndexRange");
  ASSERT_TRUE(row && column);
  EXPECT_EQ(row->location, 0);
  EXPECT_EQ(column->location, 0);
}

// A question for an interface that an element does not have makes the application complain.
TEST_F(Gtk3, TakesFlowBoxesAndIconViewsForListsAndAsksThemForNoTable) {
  for (const auto& [box, item] :
       {std::pair(AtspiRole::table, AtspiRole::tableCell), std::pair(AtspiRole::layeredPane, AtspiRole::icon)}) {
    elements_.epoch.begin();
    application_.set("box", {.role = box, .interfaces = {"Selection"}, .children = {"item"}});
    application_.set("item", {.role = item, .interfaces = {"Text"}, .parent = "box", .text = "Alpha"});
    EXPECT_EQ(text("box", "AXRole"), "AXList");
    EXPECT_EQ(selectionOf("box"), "AXSelectedChildrenChanged");
    EXPECT_EQ(text("item", "AXValue"), "Alpha");
    EXPECT_EQ(read<AXUIElement>("item", "AXParent"), element("box"));
  }
  for (const auto* member : {"GetRowAtIndex", "GetColumnAtIndex", "GetColumnHeader", "NColumns", "Position"}) {
    EXPECT_EQ(application_.calls(member), 0) << member;
  }
}

TEST_F(Gtk3, KeepsTreesAndLayoutsWhatTheyAre) {
  application_.set("tree", {.role = AtspiRole::treeTable, .interfaces = {"Table", "Selection"}});
  application_.set("table", {.role = AtspiRole::table, .interfaces = {"Table", "Selection"}});
  application_.set("layout", {.role = AtspiRole::layeredPane});
  EXPECT_EQ(text("tree", "AXRole"), "AXOutline");
  EXPECT_EQ(text("table", "AXRole"), "AXTable");
  EXPECT_EQ(text("layout", "AXRole"), "AXGroup");
}

TEST_F(Gtk3, KnowsSwitchesByWhatTheyDoAndCallsWhatIsWrittenIntoAComboBoxAsThat) {
  application_.set("switch", {.role = AtspiRole::toggleButton, .interfaces = {"Action"}, .actions = {"toggle"}});
  application_.set("toggle", {.role = AtspiRole::toggleButton, .interfaces = {"Action"}, .actions = {"click"}});
  EXPECT_EQ(text("switch", "AXSubrole"), "AXSwitch");
  EXPECT_EQ(text("toggle", "AXSubrole"), "AXToggle");
  application_.set("label", {.role = AtspiRole::label, .name = "Metal"});
  application_.set("box", {.role = AtspiRole::comboBox,
                           .children = {"menu", "field"},
                           .relations = {{AtspiRelationType::labelledBy, "label"}}});
  application_.set("field", {.role = AtspiRole::text, .parent = "box"});
  EXPECT_EQ(read<AXUIElement>("field", "AXTitleUIElement"), element("label"));
}

TEST_F(Gtk3, CallsAToolButtonWithoutANameByTheTooltipOfItsItem) {
  application_.set("bar", {.role = AtspiRole::toolBar, .children = {"item"}});
  application_.set("button", {.role = AtspiRole::pushButton, .parent = "item"});
  const auto nameIn = [this](const char* around, std::vector<std::string> children) {
    elements_.epoch.begin();
    application_.set(
        "item",
        {.role = AtspiRole::panel, .description = "Settings", .parent = around, .children = std::move(children)});
    return text("button", "AXTitle").value_or("");
  };
  EXPECT_EQ(nameIn("bar", {"button"}), "Settings");
  EXPECT_EQ(nameIn("bar", {"button", "other"}), "");
  EXPECT_EQ(nameIn("box", {"button"}), "");
}

TEST_F(Gtk3, LetsOnlyTheLabelOfAnExpanderBelongToIt) {
  const auto expandable = bit(AtspiState::expandable);
  application_.set("box", {.role = AtspiRole::filler, .children = {"expander"}});
  application_.set("expander", {.role = AtspiRole::toggleButton,
                                .name = "More",
                                .states = expandable,
                                .parent = "box",
                                .children = {"content", "label"}});
  application_.set("content", {.role = AtspiRole::filler, .parent = "expander"});
  application_.set("label", {.role = AtspiRole::label, .name = "More", .parent = "expander"});
  EXPECT_EQ(read<AXUIElement>("content", "AXParent"), element("box"));
  EXPECT_EQ(read<AXUIElement>("label", "AXParent"), element("expander"));
}

}  // namespace
}  // namespace norra::linux_desktop
