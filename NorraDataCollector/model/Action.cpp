#include "NorraDataCollector/model/Action.h"

#include <algorithm>
#include <array>

#include "NorraBase/Text.h"

namespace norra {
namespace {

using namespace std::string_view_literals;

constexpr std::array codingKeyTexts{"Undefined"sv,
                                    "Collector"sv,
                                    "ChangeApplication"sv,
                                    "OpenMenu"sv,
                                    "Click"sv,
                                    "ClickHyperLink"sv,
                                    "ClickListItem"sv,
                                    "ClickRadioButton"sv,
                                    "Toggle"sv,
                                    "ChangeText"sv,
                                    "ChangePassword"sv,
                                    "ChangeSlider"sv,
                                    "ChangeSpinner"sv,
                                    "ChangeSelectedRows"sv,
                                    "ChangeSelectedCells"sv,
                                    "ChangeSelectedChildren"sv,
                                    "PressKeyCombination"sv,
                                    "PressSpecialKey"sv,
                                    "External"sv,
                                    "Console"sv,
                                    "ClickComboBox"sv};
static_assert(codingKeyTexts.size() == std::variant_size_v<Action>);

constexpr std::array operationTexts{"start"sv, "stop"sv, "pause"sv, "resume"sv};
constexpr std::array buttonTexts{"left"sv, "right"sv, "middle"sv, "double"sv, "doubleRight"sv, "other"sv};

template <typename Enumeration, std::size_t size>
std::optional<Enumeration> find(const std::array<std::string_view, size>& texts, std::string_view text) {
  const auto found = std::ranges::find(texts, text);
  if (found == texts.end()) return std::nullopt;
  return static_cast<Enumeration>(found - texts.begin());
}

}  // namespace

std::string_view rawValue(CodingKeys key) { return codingKeyTexts[static_cast<std::size_t>(key)]; }
std::string_view rawValue(CollectorOperation operation) { return operationTexts[static_cast<std::size_t>(operation)]; }
std::string_view rawValue(MouseButton button) { return buttonTexts[static_cast<std::size_t>(button)]; }

std::optional<CodingKeys> codingKeysFrom(std::string_view rawValue) {
  return find<CodingKeys>(codingKeyTexts, rawValue);
}

std::optional<CollectorOperation> collectorOperationFrom(std::string_view rawValue) {
  return find<CollectorOperation>(operationTexts, rawValue);
}

std::optional<MouseButton> mouseButtonFrom(std::string_view rawValue) {
  return find<MouseButton>(buttonTexts, rawValue);
}

std::optional<ToggleState> toggleStateFrom(std::int64_t rawValue) {
  if (rawValue < 0 || rawValue > 2) return std::nullopt;
  return static_cast<ToggleState>(rawValue);
}

ToggleState toggleStateFromString(std::string_view text) {
  if (text == "0" || equalsIgnoringCase(text, "off")) return ToggleState::off;
  if (text == "1" || equalsIgnoringCase(text, "on")) return ToggleState::on;
  return ToggleState::indeterminate;
}

}  // namespace norra
