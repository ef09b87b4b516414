// What is written into the editors of a page is in no name, wherever the browser puts it.
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr auto editable = bit(AtspiState::editable);
constexpr auto editor = editable | bit(AtspiState::multiLine);
using enum AtspiRelationType;

FakeElement made(AtspiRole role, std::string name, std::string text, std::vector<std::string> children = {}) {
  return {.role = role,
          .name = std::move(name),
          .interfaces = {"Collection", "Text"},
          .children = std::move(children),
          .attributes = {{"tag", "p"}},
          .text = std::move(text)};
}

FakeElement with(FakeElement changed, std::uint64_t states) {
  changed.states = states;
  return changed;
}

// A name that the page gives, by a label of its own or by another element.
FakeElement named(FakeElement changed, AtspiRelationType relation = {}, const std::string& target = {}) {
  changed.attributes["explicit-name"] = "true";
  if (!target.empty()) changed.relations = {{relation, target}};
  return changed;
}

class PageNames : public FakeApplicationTest, public testing::WithParamInterface<const char*> {
 protected:
  PageNames() : FakeApplicationTest(GetParam(), "1") {
    page("area", with(made(AtspiRole::entry, "", "secret"), editor));
    page("line", with(made(AtspiRole::entry, "", "ann@example.org"), editable));
    page("number", made(AtspiRole::spinButton, "Amount", "3"));
    page("box", with(made(AtspiRole::section, "", "secret"), editor));
    page("word", made(AtspiRole::staticText, "", "Bold"));
    page("words", made(AtspiRole::section, "", "\uFFFC note ", {"word"}));
    page("around", made(AtspiRole::section, "", "\uFFFC", {"area"}));
  }

  void page(const std::string& key, FakeElement one) { application_.set(key, std::move(one)); }

  // Anew; what is not there is empty.
  template <typename Value>
  Value fresh(const std::string& key, const char* attribute) {
    elements_.epoch.begin();
    return read<Value>(key, attribute).value_or(Value{});
  }
  std::string title(const std::string& key) { return fresh<std::string>(key, "AXTitle"); }
};

INSTANTIATE_TEST_SUITE_P(Browsers, PageNames, testing::Values("Chromium", "Gecko"));

TEST_P(PageNames, AreTheOwnTextsWhereAFieldIsBelow) {
  const std::vector<std::pair<FakeElement, const char*>> rows{
      {made(AtspiRole::label, "Message secret", "Message \uFFFC", {"area"}), "Message"},
      {made(AtspiRole::label, "Email ann@example.org", "\n Email \uFFFC", {"line"}), "Email"},
      {made(AtspiRole::label, "Amount 3", "Amount \uFFFC", {"number"}), "Amount"},
      {made(AtspiRole::label, "", "Email "), "Email"},
      {made(AtspiRole::label, "Bold note secret", "\uFFFC\uFFFC", {"words", "around"}), "Bold note"},
      {made(AtspiRole::link, "Home", "Home"), "Home"},
      {made(AtspiRole::link, "Home secret", "Home \uFFFC", {"box"}), "Home"},
      {made(AtspiRole::pushButton, "Send secret", "\uFFFC", {"box"}), ""},
      {made(AtspiRole::tableCell, "Flash secret times", "Flash \uFFFC times", {"around"}), "Flash times"},
      {made(AtspiRole::listItem, "\u2022 Red buoy", "\u2022 Red buoy"), "Red buoy"},
      {made(AtspiRole::menuItem, "\u25E6 File ", "\u25E6 File"), "File"},
  };
  for (const auto& [one, expected] : rows) {
    page("one", one);
    EXPECT_EQ(title("one"), expected) << one.name;
  }
}

TEST_P(PageNames, AreNotWhatIsWrittenIntoAnEditor) {
  for (const auto role : {AtspiRole::section, AtspiRole::heading, AtspiRole::tableCell, AtspiRole::link,
                          AtspiRole::staticText, AtspiRole::pushButton}) {
    page("one", with(made(role, "secret", "secret"), editable));
    page("nameless", with(made(role, "", "secret", {"word"}), editable));
    for (const auto* attribute : {"AXTitle", "AXValue", "AXDescription"}) {
      EXPECT_EQ(fresh<std::string>("one", attribute), "") << static_cast<int>(role) << attribute;
      EXPECT_EQ(fresh<std::string>("nameless", attribute), "") << static_cast<int>(role) << attribute;
    }
    EXPECT_THAT(fresh<std::vector<AXUIElement>>("nameless", "AXChildren"), testing::IsEmpty());
  }
}

TEST_P(PageNames, AreNotWhatIsWrittenIntoAnEditorThatIsNotEditable) {
  page("keys", with(made(AtspiRole::entry, "", "secret", {"row"}), bit(AtspiState::multiLine)));
  auto line = made(AtspiRole::paragraph, "", "secret", {"text"});
  line.parent = "keys";
  page("row", line);
  auto text = made(AtspiRole::staticText, "secret", "secret");
  text.parent = "row";
  page("text", text);
  EXPECT_EQ(title("text"), "");
  EXPECT_THAT(fresh<std::vector<AXUIElement>>("keys", "AXChildren"), testing::IsEmpty());
}

TEST_P(PageNames, ThatAPageGivesAreKeptUnlessTheyAreWritten) {
  page("label", made(AtspiRole::label, "Message secret", "Message \uFFFC", {"area"}));
  const std::vector<std::pair<FakeElement, const char*>> rows{
      {named(with(made(AtspiRole::section, "Log", "secret"), editor)), "Log"},
      {named(made(AtspiRole::pushButton, "Send", "x", {"box"})), "Send"},
      {named(made(AtspiRole::pushButton, "secret", "x"), labelledBy, "box"), ""},
      {named(made(AtspiRole::checkBox, "Message secret", ""), labelledBy, "label"), ""},
      {named(made(AtspiRole::panel, "Bold note", ""), labelledBy, "words"), "Bold note"},
      {named(with(made(AtspiRole::entry, "secret", "secret"), editor), labelledBy, "one"), ""},
  };
  for (const auto& [one, expected] : rows) {
    page("one", one);
    EXPECT_EQ(title("one"), expected) << one.name;
  }
  page("area", named(with(made(AtspiRole::entry, "Message", "secret"), editor), labelledBy, "label"));
  EXPECT_EQ(title("area"), "Message");
}

TEST_P(PageNames, LeaveOutWhatIsChosenInADropDown) {
  for (const auto& [name, expected] : {std::pair("Age Twenty", "Age"), std::pair("Twenty", "Twenty")}) {
    auto dropDown = named(made(AtspiRole::comboBox, name, "Twenty"), labelledBy, "words");
    dropDown.attributes["name-from"] = "related-element";
    page("one", std::move(dropDown));
    EXPECT_EQ(title("one"), expected);
  }
}

TEST_P(PageNames, OfPartsOfADateAreLabelledAsTheDateAndHoldTheNumberInSight) {
  page("part", {.role = AtspiRole::spinButton,
                .name = "Hours",
                .interfaces = {"Value"},
                .parent = "date",
                .attributes = {{"tag", "span"}, {"valuetext", "09"}}});
  page("date", {.role = AtspiRole::panel,
                .children = {"part"},
                .attributes = {{"tag", "input"}, {"text-input-type", "time"}},
                .relations = {{labelledBy, "words"}}});
  EXPECT_EQ(read<AXUIElement>("part", "AXTitleUIElement"), element("words"));
  EXPECT_EQ(read<NSNumber>("part", "AXValue"), NSNumber{std::int64_t{9}});
}

TEST_P(PageNames, AndDescriptionsAreNotThoseOfFields) {
  for (const auto& [target, expected] : {std::pair{"box", ""}, std::pair{"line", ""}, std::pair{"words", "more"}}) {
    auto one = made(AtspiRole::pushButton, "", "x");
    one.description = "more";
    one.relations = {{describedBy, target}};
    page("one", one);
    EXPECT_EQ(fresh<std::string>("one", "AXDescription"), expected) << target;
  }
  page("one", named(made(AtspiRole::pushButton, "secret", "x"), labelledBy, "line"));
  EXPECT_EQ(read<AXUIElement>("one", "AXTitleUIElement"), std::nullopt) << "a field is no label";
}

TEST_P(PageNames, AreTheOwnTextsWhereNobodySaysWhatIsBelow) {
  application_.answer("GetMatches", [](auto* call) {
    return sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.Failed", "busy");
  });
  page("one", made(AtspiRole::link, "Home secret", "Home \uFFFC", {"box"}));
  EXPECT_EQ(title("one"), "Home");
}

}  // namespace
}  // namespace norra::linux_desktop
