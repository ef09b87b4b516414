#include "NorraDataCollector/accessibility/FocusedElementData.h"

#include "NorraBase/Text.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/AttributeValueText.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/WebContext.h"

namespace norra {
namespace {

bool canTrackValue(const AXUIElement& element, std::string_view role) {
  if (role != role::textArea) return true;
  return isWeb(element) && canTrackTextArea(parentWebAreaURL(element));
}

}  // namespace

FocusedElementData::FocusedElementData(const AXUIElement& element)
    : element_(element),
      role_(ax::roleOrUnknown(element)),
      subrole_(ax::subroleOrUnknown(element)),
      isPassword_(subrole_ == subrole::secureTextField),
      shouldTrackValue_(canTrackValue(element, role_)),
      initialText_(masked(valueToText(ax::value(element, attribute::value)).value_or(""))),
      text_(initialText_) {}

std::optional<std::string> FocusedElementData::valueToText(AXAttributeValue value) {
  if (std::holds_alternative<std::monostate>(value)) return std::nullopt;
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  return description(value);
}

std::string FocusedElementData::masked(std::string text) const {
  if (!shouldTrackValue_) return {};
  if (isPassword_) return std::string(characterCount(text), '*');
  return text;
}

std::optional<FocusedElementData> focusedElementData(const std::optional<AXUIElement>& element) {
  if (!element) return std::nullopt;
  return FocusedElementData(*element);
}

}  // namespace norra
