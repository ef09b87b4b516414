// What Qt means by its combo boxes, its fields and the boxes around groups, and what it tells of them.
#include <gmock/gmock.h>

#include <algorithm>

#include "Platform/Linux/following/WatchedEvents.h"
#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }
constexpr auto number(AtspiRole role) { return static_cast<std::uint32_t>(role); }

class Qt : public testing::Test {
 protected:
  AXUIElement element(const std::string& key) { return elements_.handles.element(application_.reference(key)); }

  template <typename Value>
  std::optional<Value> read(const std::string& key, const char* attribute) {
    const auto result = element(key).primitives().copyAttributeValue(attribute);
    const auto* value = std::get_if<Value>(&result.value);
    return result.error == axError::success && value ? std::optional(*value) : std::nullopt;
  }
  std::optional<std::string> text(const std::string& key, const char* attribute) {
    return read<std::string>(key, attribute);
  }
  std::vector<std::string> actionsOf(const std::string& key) {
    return element(key).primitives().copyActionNames().value;
  }
  ElementView view(const std::string& key) { return {elements_.session.reader(), application_.reference(key)}; }

  PrivateAccessibilityBus bus_;
  NoWindowsOnScreen windows_;
  TestElements elements_{windows_};
  FakeApplication application_{"Qt", "5.15.8"};
};

TEST_F(Qt, CallsAComboBoxByWhatIsChosenInIt) {
  application_.set("label", {.role = number(AtspiRole::label), .name = "Flag:"});
  application_.set("box", {.role = number(AtspiRole::comboBox),
                           .name = "Danish",
                           .interfaces = {"Action"},
                           .children = {"list"},
                           .relations = {{2, "label"}}});
  application_.set("list", {.role = number(AtspiRole::list), .parent = "box"});
  EXPECT_EQ(text("box", "AXRole"), "AXPopUpButton");
  EXPECT_EQ(text("box", "AXTitle"), std::nullopt);
  EXPECT_EQ(text("box", "AXValue"), "Danish");
  EXPECT_EQ(read<AXUIElement>("box", "AXTitleUIElement"), element("label"));
  EXPECT_TRUE(isFollowed(view("box")));
}

TEST_F(Qt, TellsOfWhatIsWrittenInAComboBoxByItsField) {
  application_.set("box", {.role = number(AtspiRole::comboBox), .name = "Lisbon", .children = {"list", "field"}});
  application_.set("list", {.role = number(AtspiRole::list), .parent = "box"});
  application_.set("field", {.role = number(AtspiRole::text), .parent = "box"});
  EXPECT_EQ(text("box", "AXRole"), "AXComboBox");
  std::vector<AtspiReference> sources;
  for (const auto& kind : valueEvents(view("box"))) sources.push_back(kind.source);
  EXPECT_THAT(sources, ElementsAre(application_.reference("box"), application_.reference("field")));
}

TEST_F(Qt, OffersToConfirmWhatIsWrittenInOneLine) {
  const std::vector<std::string> interfaces{"Action", "Text", "EditableText"};
  application_.set("field", {.role = number(AtspiRole::text), .interfaces = interfaces, .actions = {"SetFocus"}});
  application_.set("password", {.role = number(AtspiRole::passwordText), .interfaces = interfaces});
  application_.set("editor", {.role = number(AtspiRole::text),
                              .states = bit(AtspiState::multiLine),
                              .interfaces = interfaces,
                              .actions = {"SetFocus"}});
  EXPECT_THAT(actionsOf("field"), ElementsAre("AXConfirm"));
  EXPECT_THAT(actionsOf("password"), ElementsAre("AXConfirm"));
  EXPECT_THAT(actionsOf("editor"), ElementsAre());
}

TEST_F(Qt, DoesNotTakeWhatACheckableGroupHoldsForItsBox) {
  application_.set("page", {.role = number(AtspiRole::filler), .children = {"group"}});
  application_.set(
      "group",
      {.role = number(AtspiRole::checkBox), .name = "Insured", .parent = "page", .children = {"label", "field"}});
  application_.set("label", {.role = number(AtspiRole::label), .name = "By whom", .parent = "group"});
  application_.set("field", {.role = number(AtspiRole::text), .name = "Insured", .parent = "group"});
  EXPECT_EQ(read<AXUIElement>("label", "AXParent"), element("page"));
  EXPECT_EQ(read<AXUIElement>("field", "AXParent"), element("page"));
  EXPECT_EQ(read<AXUIElement>("group", "AXParent"), element("page"));
}

TEST_F(Qt, FollowsAnItemOnlyWhenWhatHadTheFocusHasLostIt) {
  const auto follows = [this](const std::vector<std::string>& burst) {
    elements_.epoch.begin();
    for (const auto& key : burst) elements_.focus.arrived(application_.reference(key));
    return elements_.focus.settle(application_.reference("field").busName);
  };
  application_.set("field", {.role = number(AtspiRole::text), .states = bit(AtspiState::focused)});
  application_.set("list", {.role = number(AtspiRole::list), .interfaces = {"Table"}, .children = {"item"}});
  application_.set("item", {.role = number(AtspiRole::listItem), .states = bit(AtspiState::focused), .parent = "list"});
  EXPECT_EQ(follows({"field", "item"}), application_.reference("field"));
  EXPECT_EQ(follows({"item"}), application_.reference("field"));
  application_.set("field", {.role = number(AtspiRole::text)});
  EXPECT_EQ(follows({"item"}), application_.reference("list"));
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
    application_.set("box", {.role = number(AtspiRole::spinButton),
                             .interfaces = {"Value", "Text"},
                             .text = row.shown,
                             .value = row.value});
    EXPECT_EQ(element("box").primitives().copyAttributeValue("AXValue").value, row.expected) << row.shown;
  }
}

}  // namespace
}  // namespace norra::linux_desktop
