#include "NorraDataCollector/model/ActionWords.h"

#include <array>
#include <utility>

#include "NorraDataCollector/model/KeyWords.h"

namespace norra {
namespace {

/// The parts that are not empty, with the separator between them.
std::string joined(std::string_view left, std::string_view separator, std::string_view right) {
  std::string text(left);
  if (!left.empty() && !right.empty()) text += separator;
  return text += right;
}

std::optional<std::string> unlessEmpty(std::string text) {
  return text.empty() ? std::nullopt : std::optional(std::move(text));
}

std::string_view verb(MouseButton button) {
  switch (button) {
    case MouseButton::left: return "Clicked";
    case MouseButton::right: return "Right-clicked";
    case MouseButton::middle: return "Middle-clicked";
    case MouseButton::double_: return "Double-clicked";
    case MouseButton::doubleRight: return "Double-right-clicked";
    case MouseButton::other: return "Clicked with another button";
  }
  return "";
}

std::string clicked(MouseButton button, std::string_view controlType) {
  const auto separator = button == MouseButton::other && !controlType.empty() ? " on " : " ";
  return joined(verb(button), separator, controlType);
}

std::string_view nameOf(std::optional<ToggleState> state) {
  if (state == ToggleState::on) return "on";
  return state == ToggleState::off ? "off" : "";
}

/// A state where the text tells one, else the text.
std::string toggledValue(const std::string& text) {
  const auto state = nameOf(toggleStateFromString(text));
  return state.empty() ? text : std::string(state);
}

ActionWords words(const UndefinedData&) { return {.deed = "Did something of an unknown kind"}; }

ActionWords words(const CollectorData& data) {
  switch (data.operation) {
    case CollectorOperation::start: return {.deed = "Collection started"};
    case CollectorOperation::stop: return {.deed = "Collection stopped"};
    case CollectorOperation::pause: return {.deed = "Collection paused"};
    case CollectorOperation::resume: return {.deed = "Collection resumed"};
  }
  return {};
}

ActionWords words(const ChangeApplicationData& data) {
  const auto& name = data.fileDescription.empty() ? data.applicationName : data.fileDescription;
  return {"Switched to", name, unlessEmpty(data.windowTitle)};
}

ActionWords words(const OpenMenuData& data) { return {"Opened menu", data.elementName, std::nullopt}; }

ActionWords words(const ClickData& data) {
  return {clicked(data.button, data.controlType), data.elementName, unlessEmpty(std::string(nameOf(data.toggleState)))};
}

ActionWords words(const ClickHyperlinkData& data) {
  return {"Clicked link", data.elementName, data.url ? std::optional(data.url->absoluteString) : std::nullopt};
}

ActionWords words(const ClickListItemData& data) {
  return {clicked(data.button, data.controlType), data.elementName,
          unlessEmpty(joined(data.columnName, ": ", data.columnValue))};
}

ActionWords words(const ClickRadioButtonData& data) {
  const auto group = data.groupName.empty() ? std::nullopt : std::optional("in " + data.groupName);
  return {joined("Chose", " ", data.controlType.value_or("radio button")), data.elementName, group};
}

ActionWords words(const ClickComboBoxData& data) {
  return {clicked(data.button, data.controlType), data.elementName, unlessEmpty(data.comboBoxValue)};
}

template <CodingKeys kind>
ActionWords words(const ValueChangeData<kind>& data) {
  const bool isSelection = wordsFor(kind).group == KindGroup::selection;
  return {joined(isSelection ? "Selected in" : "Changed", " ", data.controlType.value_or("")), data.elementName,
          data.newValue};
}

ActionWords words(const ToggleData& data) {
  return {joined("Switched", " ", data.controlType.value_or("")), data.elementName, toggledValue(data.newValue)};
}

ActionWords words(const ChangePasswordData& data) {
  return {std::string("Changed password in ") + data.controlType.value_or("field"), data.elementName, std::nullopt};
}

template <CodingKeys kind>
ActionWords words(const KeyPressData<kind>& data) {
  const auto place = joined(data.controlType, " ", data.elementName);
  return {"Pressed", keyWords(data.key), place.empty() ? std::nullopt : std::optional("in " + place)};
}

ActionWords words(const ExternalData& data) { return {"Message from elsewhere", data.message, std::nullopt}; }

ActionWords words(const ConsoleData& data) {
  const auto place = joined(data.shell, " ", data.prompt);
  return {"Ran command", data.command, place.empty() ? std::nullopt : std::optional("in " + place)};
}

/// In the order of CodingKeys.
constexpr std::array<KindWords, std::variant_size_v<Action>> kindWords{{
    {"Unknown", KindGroup::other},
    {"Collection", KindGroup::collection},
    {"Application switch", KindGroup::application},
    {"Menu", KindGroup::click},
    {"Click", KindGroup::click},
    {"Link click", KindGroup::click},
    {"List item click", KindGroup::click},
    {"Radio button", KindGroup::click},
    {"Toggle", KindGroup::value},
    {"Text", KindGroup::value},
    {"Password", KindGroup::secret},
    {"Slider", KindGroup::value},
    {"Spinner", KindGroup::value},
    {"Row selection", KindGroup::selection},
    {"Cell selection", KindGroup::selection},
    {"Item selection", KindGroup::selection},
    {"Key combination", KindGroup::key},
    {"Special key", KindGroup::key},
    {"External", KindGroup::other},
    {"Console", KindGroup::other},
    {"Combo box click", KindGroup::click},
}};

}  // namespace

ActionWords wordsFor(const Action& action) {
  return std::visit([](const auto& data) { return words(data); }, action);
}

KindWords wordsFor(CodingKeys kind) { return kindWords[static_cast<std::size_t>(kind)]; }

std::string_view nameOf(KindGroup group) {
  switch (group) {
    case KindGroup::click: return "click";
    case KindGroup::value: return "value";
    case KindGroup::secret: return "secret";
    case KindGroup::selection: return "selection";
    case KindGroup::key: return "key";
    case KindGroup::application: return "application";
    case KindGroup::collection: return "collection";
    case KindGroup::other: return "other";
  }
  return "";
}

}  // namespace norra
