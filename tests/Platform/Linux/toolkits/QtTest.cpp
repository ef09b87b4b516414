// What Qt means by its combo boxes, its fields and the boxes around groups, and what it tells of them.
#include <gmock/gmock.h>

#include <algorithm>

#include "Platform/Linux/following/WatchedEvents.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;

class Qt : public FakeApplicationTest {
 protected:
  Qt() : FakeApplicationTest("Qt", "5.15.8") {}
};

TEST_F(Qt, CallsAComboBoxByWhatIsChosenInIt) {
  application_.set("label", {.role = AtspiRole::label, .name = "Flag:"});
  application_.set("box", {.role = AtspiRole::comboBox,
                           .name = "Danish",
                           .interfaces = {"Action"},
                           .children = {"list"},
                           .relations = {{AtspiRelationType::labelledBy, "label"}}});
  application_.set("list", {.role = AtspiRole::list, .parent = "box"});
  EXPECT_EQ(text("box", "AXRole"), "AXPopUpButton");
  EXPECT_EQ(text("box", "AXTitle"), std::nullopt);
  EXPECT_EQ(text("box", "AXValue"), "Danish");
  EXPECT_EQ(read<AXUIElement>("box", "AXTitleUIElement"), element("label"));
  EXPECT_TRUE(isFollowed(view("box")));
}

// As who sees the form does, where no relation says it.
TEST_F(Qt, TakesTheTextBeforeOrAboveAFieldForItsLabelUnlessItIsThatOfAnother) {
  const auto set = [this](const std::string& key, AtspiRole role, std::array<std::int32_t, 4> place) {
    const bool isLabel = role == AtspiRole::label;
    application_.set(key, {.role = role,
                           .name = isLabel ? key : "",
                           .states = bit(AtspiState::showing),
                           .parent = "form",
                           .extents = place});
  };
  application_.set("form", {.role = AtspiRole::dialog,
                            .children = {"Types", "box", "after", "Notes", "notes", "far", "Far", "taken", "Name"}});
  set("Types", AtspiRole::label, {10, 10, 50, 20});
  set("box", AtspiRole::comboBox, {70, 8, 100, 24});
  set("after", AtspiRole::text, {180, 8, 100, 24});
  set("Notes", AtspiRole::label, {10, 40, 50, 20});
  set("notes", AtspiRole::text, {10, 62, 200, 24});
  set("Far", AtspiRole::label, {10, 140, 50, 20});
  set("far", AtspiRole::text, {400, 140, 100, 24});
  set("taken", AtspiRole::text, {70, 200, 100, 24});
  application_.set("Name", {.role = AtspiRole::label,
                            .name = "Name",
                            .states = bit(AtspiState::showing),
                            .parent = "form",
                            .relations = {{AtspiRelationType::labelFor, "notes"}},
                            .extents = {10, 200, 50, 20}});
  EXPECT_EQ(read<AXUIElement>("box", "AXTitleUIElement"), element("Types"));
  EXPECT_EQ(read<AXUIElement>("notes", "AXTitleUIElement"), element("Notes"));
  for (const auto* key : {"after", "far", "taken"}) {
    EXPECT_EQ(read<AXUIElement>(key, "AXTitleUIElement"), std::nullopt) << key;
  }
}

TEST_F(Qt, TellsOfWhatIsWrittenInAComboBoxByItsField) {
  application_.set("box", {.role = AtspiRole::comboBox, .name = "Lisbon", .children = {"list", "field"}});
  application_.set("list", {.role = AtspiRole::list, .parent = "box"});
  application_.set("field", {.role = AtspiRole::text, .parent = "box"});
  EXPECT_EQ(text("box", "AXRole"), "AXComboBox");
  std::vector<AtspiReference> sources;
  for (const auto& kind : valueEvents(view("box"))) sources.push_back(kind.source);
  EXPECT_THAT(sources, ElementsAre(reference("box"), reference("field")));
}

TEST_F(Qt, OffersToConfirmWhatIsWrittenInOneLine) {
  const std::vector<std::string> interfaces{"Action", "Text", "EditableText"};
  application_.set("field", {.role = AtspiRole::text, .interfaces = interfaces, .actions = {"SetFocus"}});
  application_.set("password", {.role = AtspiRole::passwordText, .interfaces = interfaces});
  application_.set("editor", {.role = AtspiRole::text,
                              .states = bit(AtspiState::multiLine),
                              .interfaces = interfaces,
                              .actions = {"SetFocus"}});
  EXPECT_THAT(actions("field"), ElementsAre("AXConfirm"));
  EXPECT_THAT(actions("password"), ElementsAre("AXConfirm"));
  EXPECT_THAT(actions("editor"), ElementsAre());
}

TEST_F(Qt, DoesNotTakeWhatACheckableGroupHoldsForItsBox) {
  application_.set("page", {.role = AtspiRole::filler, .children = {"group"}});
  application_.set("group",
                   {.role = AtspiRole::checkBox, .name = "Insured", .parent = "page", .children = {"label", "field"}});
  application_.set("label", {.role = AtspiRole::label, .name = "By whom", .parent = "group"});
  application_.set("field", {.role = AtspiRole::text, .name = "Insured", .parent = "group"});
  EXPECT_EQ(read<AXUIElement>("label", "AXParent"), element("page"));
  EXPECT_EQ(read<AXUIElement>("field", "AXParent"), element("page"));
  EXPECT_EQ(read<AXUIElement>("group", "AXParent"), element("page"));
}

TEST_F(Qt, FollowsAnItemOnlyWhenWhatHadTheFocusHasLostIt) {
  const auto follows = [this](const std::vector<std::string>& burst) {
    elements_.epoch.begin();
    for (const auto& key : burst) elements_.focus.arrived(reference(key));
    return elements_.focus.settle(reference("field").busName);
  };
  application_.set("field", {.role = AtspiRole::text, .states = bit(AtspiState::focused)});
  application_.set("list", {.role = AtspiRole::list, .interfaces = {"Table"}, .children = {"item"}});
  application_.set("item", {.role = AtspiRole::listItem, .states = bit(AtspiState::focused), .parent = "list"});
  EXPECT_EQ(follows({"field", "item"}), reference("field"));
  EXPECT_EQ(follows({"item"}), reference("field"));
  application_.set("field", {.role = AtspiRole::text});
  EXPECT_EQ(follows({"item"}), reference("list"));
}

// The number of a date is 0, and of what is being written the one from before.
TEST_F(Qt, SaysOfBoxesForNumbersAndDatesWhatTheyShow) {
  struct Row {
    const char* shown;
    double value;
    AXAttributeValue expected;
  };
  const Row rows[] = {{"12", 12, NSNumber{std::int64_t{12}}},
                      {"2.50 m", 2.5, NSNumber{2.5}},
                      {"2,5", 2.5, NSNumber{2.5}},
                      {"1,234", 1234, NSNumber{std::int64_t{1234}}},
                      {"-7", -7, NSNumber{std::int64_t{-7}}},
                      {"42", 4, NSNumber{std::int64_t{42}}},
                      {"", 5, NSNumber{std::int64_t{5}}},
                      {"Automatic", 0, std::string("Automatic")},
                      {"2026-03-14", 0, std::string("2026-03-14")},
                      {"14.03.2026", 0, std::string("14.03.2026")},
                      {"00:00", 0, std::string("00:00")}};
  for (const auto& row : rows) {
    elements_.epoch.begin();
    application_.set(
        "box", {.role = AtspiRole::spinButton, .interfaces = {"Value", "Text"}, .text = row.shown, .value = row.value});
    EXPECT_EQ(conformance::read(element("box"), "AXValue").value, row.expected) << row.shown;
  }
}

}  // namespace
}  // namespace norra::linux_desktop
