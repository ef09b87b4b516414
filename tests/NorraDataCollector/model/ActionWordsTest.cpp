#include <gmock/gmock.h>

#include <set>

#include "NorraDataCollector/model/ActionWords.h"

namespace norra {
namespace {

using std::nullopt;

struct WordsCase {
  Action action;
  ActionWords words;
};

using Button = MouseButton;
using State = ToggleState;

/// A record of its own kind with all its members.
template <typename Data, typename... Member>
Data with(Member... members) {
  return Data{Data{}.action, std::move(members)...};
}

ClickData click(Button button, std::optional<State> state = State::indeterminate) {
  return with<ClickData>("Save", "button", "", button, state);
}

const std::vector<WordsCase> wordsCases{
    {UndefinedData(), {"Did something of an unknown kind"}},
    {with<CollectorData>(CollectorOperation::start), {"Collection started"}},
    {with<CollectorData>(CollectorOperation::resume), {"Collection resumed"}},
    {with<ChangeApplicationData>(1, "org.example.Notes", "Notes", "List"), {"Switched to", "Notes", "List"}},
    {with<ChangeApplicationData>(1, "xterm", "", ""), {"Switched to", "xterm"}},
    {with<OpenMenuData>("File", ""), {"Opened menu", "File"}},
    {click(Button::left), {"Clicked button", "Save"}},
    {click(Button::right, nullopt), {"Right-clicked button", "Save"}},
    {click(Button::middle, State::on), {"Middle-clicked button", "Save", "on"}},
    {click(Button::double_, State::off), {"Double-clicked button", "Save", "off"}},
    {click(Button::other), {"Clicked with another button on button", "Save"}},
    {with<ClickData>("", "", "", Button::other, nullopt), {"Clicked with another button", ""}},
    {with<ClickHyperlinkData>("More", "", URL{"https://example.org/"}),
     {"Clicked link", "More", "https://example.org/"}},
    {with<ClickHyperlinkData>("More", "", nullopt), {"Clicked link", "More"}},
    {with<ClickListItemData>("Inbox", "row", "", Button::left, "Subject", "Lunch"),
     {"Clicked row", "Inbox", "Subject: Lunch"}},
    {with<ClickListItemData>("Inbox", "row", "", Button::left, "", "Lunch"), {"Clicked row", "Inbox", "Lunch"}},
    {with<ClickRadioButtonData>("Left", "tab", "", "Alignment"), {"Chose tab", "Left", "in Alignment"}},
    {with<ClickRadioButtonData>("Left", nullopt, "", ""), {"Chose radio button", "Left"}},
    {with<ToggleData>("X", nullopt, "", "0"), {"Switched", "X", "off"}},
    {with<ToggleData>("X", nullopt, "", "2"), {"Switched", "X", "2"}},
    {with<ChangeTextData>("X", "text field", "", ""), {"Changed text field", "X", ""}},
    {with<ChangeTextData>("X", nullopt, "", "abc"), {"Changed", "X", "abc"}},
    {with<ChangePasswordData>("X", "secure text field", "", ""), {"Changed password in secure text field", "X"}},
    {with<ChangeSliderData>("X", "slider", "", "5"), {"Changed slider", "X", "5"}},
    {with<ChangeSpinnerData>("X", nullopt, "", "5"), {"Changed", "X", "5"}},
    {with<ChangeSelectedRowsData>("X", "table", "", "A, B"), {"Selected in table", "X", "A, B"}},
    {with<ChangeSelectedCellsData>("X", nullopt, "", "A"), {"Selected in", "X", "A"}},
    {with<ChangeSelectedChildrenData>("X", "list", "", "A"), {"Selected in list", "X", "A"}},
    {with<KeyCombinationData>("Message", "text area", "", "Command + c"),
     {"Pressed", "Super+C", "in text area Message"}},
    {with<SpecialKeyData>("", "", "", "delete"), {"Pressed", "Backspace"}},
    {with<ExternalData>("Hello"), {"Message from elsewhere", "Hello"}},
    {with<ConsoleData>("ls", "~ $", "bash"), {"Ran command", "ls", "in bash ~ $"}},
    {with<ClickComboBoxData>("Font", "combo box", "", "Serif", Button::left), {"Clicked combo box", "Font", "Serif"}},
};

TEST(ActionWords, ReadAsASentence) {
  std::set<std::size_t> kinds;
  for (const auto& [action, words] : wordsCases) {
    const auto actual = wordsFor(action);
    EXPECT_EQ(actual, words) << actual.deed << '|' << actual.object.value_or("-") << '|'
                             << actual.outcome.value_or("-");
    kinds.insert(action.index());
  }
  EXPECT_EQ(kinds.size(), std::variant_size_v<Action>);
}

TEST(KindWords, TellEveryKindFromTheOthers) {
  std::set<std::string_view> labels;
  for (std::size_t index = 0; index < std::variant_size_v<Action>; ++index) {
    labels.insert(wordsFor(static_cast<CodingKeys>(index)).label);
  }
  EXPECT_EQ(labels.size(), std::variant_size_v<Action>);
  EXPECT_FALSE(labels.contains(""));
  EXPECT_EQ(wordsFor(CodingKeys::changePassword).group, KindGroup::secret);
}

}  // namespace
}  // namespace norra
