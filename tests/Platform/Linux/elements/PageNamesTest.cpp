// What is written into the editors of a page is in no name, wherever the browser puts it.
#include <gmock/gmock.h>

#include "Platform/Linux/atspi/AtspiRole.h"
#include "tests/Platform/Linux/FakeApplication.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }
constexpr auto editable = bit(AtspiState::editable);
constexpr auto editor = editable | bit(AtspiState::multiLine);
constexpr std::uint32_t labelledBy = 2;
constexpr std::uint32_t describedBy = 18;

FakeElement element(AtspiRole role, std::string name, std::string text, std::vector<std::string> children = {}) {
  return {.role = static_cast<std::uint32_t>(role),
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
FakeElement named(FakeElement changed, std::uint32_t relation = 0, const std::string& target = {}) {
  changed.attributes["explicit-name"] = "true";
  if (relation != 0) changed.relations = {{relation, target}};
  return changed;
}

class PageNames : public testing::TestWithParam<const char*> {
 protected:
  PageNames() {
    page("area", with(element(AtspiRole::entry, "", "secret"), editor));
    page("line", with(element(AtspiRole::entry, "", "ann@example.org"), editable));
    page("number", element(AtspiRole::spinButton, "Amount", "3"));
    page("box", with(element(AtspiRole::section, "", "secret"), editor));
    page("word", element(AtspiRole::staticText, "", "Bold"));
    page("words", element(AtspiRole::section, "", "\uFFFC note ", {"word"}));
    page("around", element(AtspiRole::section, "", "\uFFFC", {"area"}));
  }

  void page(const std::string& key, FakeElement one) { browser_.set(key, std::move(one)); }

  template <typename Value>
  Value read(const std::string& key, const char* attribute) {
    elements_.epoch.begin();
    const auto result = elements_.handles.element(browser_.reference(key)).primitives().copyAttributeValue(attribute);
    const auto* value = std::get_if<Value>(&result.value);
    return result.error == axError::success && value ? *value : Value{};
  }
  std::string title(const std::string& key) { return read<std::string>(key, "AXTitle"); }

  PrivateAccessibilityBus bus_;
  NoWindowsOnScreen windows_;
  TestElements elements_{windows_};
  FakeApplication browser_{GetParam(), "1"};
};

INSTANTIATE_TEST_SUITE_P(Browsers, PageNames, testing::Values("Chromium", "Gecko"));

TEST_P(PageNames, AreTheOwnTextsWhereAFieldIsBelow) {
  const std::vector<std::pair<FakeElement, const char*>> rows{
      {element(AtspiRole::label, "Message secret", "Message \uFFFC", {"area"}), "Message"},
      {element(AtspiRole::label, "Email ann@example.org", "\n Email \uFFFC", {"line"}), "Email"},
      {element(AtspiRole::label, "Amount 3", "Amount \uFFFC", {"number"}), "Amount"},
      {element(AtspiRole::label, "", "Email "), "Email"},
      {element(AtspiRole::label, "Bold note secret", "\uFFFC\uFFFC", {"words", "around"}), "Bold note"},
      {element(AtspiRole::link, "Home", "Home"), "Home"},
      {element(AtspiRole::link, "Home secret", "Home \uFFFC", {"box"}), "Home"},
      {element(AtspiRole::pushButton, "Send secret", "\uFFFC", {"box"}), ""},
      {element(AtspiRole::tableCell, "Flash secret times", "Flash \uFFFC times", {"around"}), "Flash times"},
      {element(AtspiRole::listItem, "\u2022 Red buoy", "\u2022 Red buoy"), "Red buoy"},
      {element(AtspiRole::menuItem, "\u25E6 File ", "\u25E6 File"), "File"},
  };
  for (const auto& [one, expected] : rows) {
    page("one", one);
    EXPECT_EQ(title("one"), expected) << one.name;
  }
}

TEST_P(PageNames, AreNotWhatIsWrittenIntoAnEditor) {
  for (const auto role : {AtspiRole::section, AtspiRole::heading, AtspiRole::tableCell, AtspiRole::link,
                          AtspiRole::staticText, AtspiRole::pushButton}) {
    page("one", with(element(role, "secret", "secret"), editable));
    page("nameless", with(element(role, "", "secret", {"word"}), editable));
    for (const auto* attribute : {"AXTitle", "AXValue", "AXDescription"}) {
      EXPECT_EQ(read<std::string>("one", attribute), "") << static_cast<int>(role) << attribute;
      EXPECT_EQ(read<std::string>("nameless", attribute), "") << static_cast<int>(role) << attribute;
    }
    EXPECT_THAT(read<std::vector<AXUIElement>>("nameless", "AXChildren"), testing::IsEmpty());
  }
}

TEST_P(PageNames, AreNotWhatIsWrittenIntoAnEditorThatIsNotEditable) {
  page("keys", with(element(AtspiRole::entry, "", "secret", {"row"}), bit(AtspiState::multiLine)));
  auto line = element(AtspiRole::paragraph, "", "secret", {"text"});
  line.parent = "keys";
  page("row", line);
  auto text = element(AtspiRole::staticText, "secret", "secret");
  text.parent = "row";
  page("text", text);
  EXPECT_EQ(title("text"), "");
  EXPECT_THAT(read<std::vector<AXUIElement>>("keys", "AXChildren"), testing::IsEmpty());
}

TEST_P(PageNames, ThatAPageGivesAreKeptUnlessTheyAreWritten) {
  page("label", element(AtspiRole::label, "Message secret", "Message \uFFFC", {"area"}));
  const std::vector<std::pair<FakeElement, const char*>> rows{
      {named(with(element(AtspiRole::section, "Log", "secret"), editor)), "Log"},
      {named(element(AtspiRole::pushButton, "Send", "x", {"box"})), "Send"},
      {named(element(AtspiRole::pushButton, "secret", "x"), labelledBy, "box"), ""},
      {named(element(AtspiRole::checkBox, "Message secret", ""), labelledBy, "label"), ""},
      {named(element(AtspiRole::panel, "Bold note", ""), labelledBy, "words"), "Bold note"},
      {named(with(element(AtspiRole::entry, "secret", "secret"), editor), labelledBy, "one"), ""},
  };
  for (const auto& [one, expected] : rows) {
    page("one", one);
    EXPECT_EQ(title("one"), expected) << one.name;
  }
  page("area", named(with(element(AtspiRole::entry, "Message", "secret"), editor), labelledBy, "label"));
  EXPECT_EQ(title("area"), "Message");
}

TEST_P(PageNames, AndDescriptionsAreNotThoseOfFields) {
  for (const auto& [target, expected] : {std::pair{"box", ""}, std::pair{"line", ""}, std::pair{"words", "more"}}) {
    auto one = element(AtspiRole::pushButton, "", "x");
    one.description = "more";
    one.relations = {{describedBy, target}};
    page("one", one);
    EXPECT_EQ(read<std::string>("one", "AXDescription"), expected) << target;
  }
  page("one", named(element(AtspiRole::pushButton, "secret", "x"), labelledBy, "line"));
  const auto titleElement =
      elements_.handles.element(browser_.reference("one")).primitives().copyAttributeValue("AXTitleUIElement");
  EXPECT_NE(titleElement.error, axError::success) << "a field is no label";
}

TEST_P(PageNames, AreTheOwnTextsWhereNobodySaysWhatIsBelow) {
  browser_.answer("GetMatches", [](auto* call) {
    return sd_bus_reply_method_errorf(call, "org.freedesktop.DBus.Error.Failed", "busy");
  });
  page("one", element(AtspiRole::link, "Home secret", "Home \uFFFC", {"box"}));
  EXPECT_EQ(title("one"), "Home");
}

}  // namespace
}  // namespace norra::linux_desktop
