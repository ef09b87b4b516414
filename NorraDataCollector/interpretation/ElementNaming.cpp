#include "NorraDataCollector/interpretation/ElementNaming.h"

#include <array>
#include <utility>
#include <vector>

#include "NorraBase/Text.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/ElementAccess.h"

namespace norra {
namespace {

constexpr std::string_view truncationMark = "...";

constexpr std::array nameAttributes{attribute::title,     attribute::description, attribute::placeholderValue,
                                    attribute::value,     attribute::filename,    attribute::help,
                                    attribute::identifier};

/// Every attribute is read before one is chosen, so that a platform may answer them together.
std::vector<std::string> candidateNames(const AXUIElement& element, const AttributeNames& ignoredAttributes,
                                        bool isValueHidden) {
  std::vector<std::string> names;
  for (const auto name : nameAttributes) {
    if (ignoredAttributes.contains(name) || (isValueHidden && name == attribute::value)) continue;
    if (auto text = ax::text(element, name)) names.push_back(*std::move(text));
  }
  return names;
}

}  // namespace

const AttributeNames rowAndCellIgnoredAttributes{attribute::help, attribute::identifier};

std::optional<std::string> collectName(const std::optional<AXUIElement>& element,
                                       const AttributeNames& ignoredAttributes) {
  if (!element) return std::nullopt;
  const auto role = ax::role(*element);
  const auto subrole = ax::subrole(*element);
  const bool isSecure = subrole == subrole::secureTextField;
  for (auto& name : candidateNames(*element, ignoredAttributes, role == role::textArea || isSecure)) {
    if (!name.empty()) return trim(std::move(name), maxLogStringCount);
  }
  if (isSecure || subrole == subrole::searchField) return std::string();
  return std::nullopt;
}

std::optional<std::string> collectTitleElementName(const AXUIElement& element,
                                                   const AttributeNames& ignoredAttributes) {
  return collectName(ax::titleElement(element), ignoredAttributes);
}

std::optional<std::string> collectName(const TitleElementOrElement& titled, const AttributeNames& ignoredAttributes) {
  const auto& element = titled.titleElementOrElement;
  if (!element) return std::nullopt;
  if (auto name = collectTitleElementName(*element, ignoredAttributes)) return name;
  return collectName(element, ignoredAttributes);
}

std::string collectRoleDescription(const AXUIElement& handle, std::string_view role,
                                   std::optional<std::string_view> subrole,
                                   const std::optional<std::string>& roleDescription) {
  if (roleDescription && !roleDescription->empty()) return *roleDescription;
  return handle.primitives().roleDescription(role, subrole).value_or(std::string(role));
}

std::string collectRoleDescription(const std::optional<AXUIElement>& element) {
  if (!element) return {};
  const auto role = ax::roleOrUnknown(*element);
  const auto subrole = ax::subroleOrUnknown(*element);
  return collectRoleDescription(*element, role, subrole, ax::roleDescription(*element));
}

std::optional<std::string> collectAutomationID(const std::optional<AXUIElement>& element) {
  if (!element) return std::nullopt;
  return ax::text(*element, attribute::identifier);
}

std::optional<std::string> trim(std::optional<std::string> name, std::size_t maxLength) {
  if (!name || !hasMoreCharactersThan(*name, maxLength)) return name;
  return std::string(firstCharacters(*name, maxLength - truncationMark.size())).append(truncationMark);
}

}  // namespace norra
