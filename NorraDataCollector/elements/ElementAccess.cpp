#include "NorraDataCollector/elements/ElementAccess.h"

#include <array>
#include <utility>

#include "NorraBase/OneOf.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/AttributeValueText.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra::ax {
namespace {

using NorraDataCollectorLogging::defaultLogger;

constexpr std::array quietErrors{axError::noValue, axError::apiDisabled, axError::attributeUnsupported,
                                 axError::failure};

void logWrongType(std::string_view attribute, std::string_view expected, const AXAttributeValue& value) {
  std::string message = "Error: Wrong CFTypeID of attribute '";
  message.append(attribute).append("'. Expected ").append(expected);
  defaultLogger().debug(message.append(", got '").append(description(value)).append("'"));
}

template <typename Type>
std::optional<Type> read(const AXUIElement& element, std::string_view attribute) {
  auto copied = value(element, attribute);
  if (auto* typed = std::get_if<Type>(&copied)) return std::move(*typed);
  return std::nullopt;
}

bool readBoolean(const AXUIElement& element, std::string_view attribute) {
  const auto number = read<NSNumber>(element, attribute);
  return number && std::visit([](auto value) { return value != decltype(value){}; }, number->value);
}

/// The list beside a code; an error is logged under the primitive's name and gives an empty list.
std::vector<std::string> names(std::string_view primitive, AXResult<std::vector<std::string>> copied) {
  if (copied.error == axError::success) return std::move(copied.value);
  std::string message = "Error: ";
  defaultLogger().debug(message.append(primitive).append(" error: ").append(std::to_string(copied.error)));
  return {};
}

std::string coordinateText(double coordinate) {
  auto text = decimalText(coordinate);
  return text.find('.') == std::string::npos ? text + ".0" : text;
}

}  // namespace

AXAttributeValue value(const AXUIElement& element, std::string_view attribute) {
  auto copied = element.primitives().copyAttributeValue(attribute);
  if (copied.error == axError::success) return std::move(copied.value);
  if (!isOneOf(quietErrors, copied.error)) {
    defaultLogger().debug("Error: AXUIElementCopyAttributeValue error: " + std::to_string(copied.error));
  }
  return {};
}

std::optional<std::string> text(const AXUIElement& element, std::string_view attribute) {
  return read<std::string>(element, attribute);
}

std::optional<AXUIElement> element(const AXUIElement& element, std::string_view attribute) {
  auto copied = value(element, attribute);
  if (auto* found = std::get_if<AXUIElement>(&copied)) return std::move(*found);
  if (!std::holds_alternative<std::monostate>(copied)) logWrongType(attribute, "AXUIElement", copied);
  return std::nullopt;
}

std::vector<AXUIElement> elements(const AXUIElement& element, std::string_view attribute) {
  auto copied = value(element, attribute);
  if (auto* found = std::get_if<std::vector<AXUIElement>>(&copied)) return std::move(*found);
  if (!std::holds_alternative<std::monostate>(copied)) logWrongType(attribute, "CFArray", copied);
  return {};
}

ProcessIdentifier processIdentifier(const AXUIElement& element) {
  const auto pid = element.primitives().getPid();
  return pid.error == axError::success ? pid.value : 0;
}

std::vector<std::string> attributes(const AXUIElement& element) {
  return names("AXUIElementCopyAttributeNames", element.primitives().copyAttributeNames());
}

std::vector<std::string> actions(const AXUIElement& element) {
  return names("AXUIElementCopyActionNames", element.primitives().copyActionNames());
}

std::optional<std::string> role(const AXUIElement& element) { return text(element, attribute::role); }
std::optional<std::string> subrole(const AXUIElement& element) { return text(element, attribute::subrole); }

std::string roleOrUnknown(const AXUIElement& element) { return role(element).value_or(std::string(role::unknown)); }

std::string subroleOrUnknown(const AXUIElement& element) {
  return subrole(element).value_or(std::string(subrole::unknown));
}

std::optional<std::string> roleDescription(const AXUIElement& element) {
  return text(element, attribute::roleDescription);
}

std::optional<std::string> title(const AXUIElement& element) { return text(element, attribute::title); }
std::optional<std::string> domIdentifier(const AXUIElement& element) { return text(element, attribute::domIdentifier); }

std::optional<URL> url(const AXUIElement& element) {
  const auto url = read<NSURL>(element, attribute::url);
  return url ? absoluteURL(url->absoluteString) : std::nullopt;
}

std::optional<AXUIElement> parent(const AXUIElement& element) { return ax::element(element, attribute::parent); }

std::optional<AXUIElement> titleElement(const AXUIElement& element) {
  return ax::element(element, attribute::titleUIElement);
}

std::optional<AXUIElement> focusedElement(const AXUIElement& element) {
  return ax::element(element, attribute::focusedUIElement);
}

std::optional<AXUIElement> window(const AXUIElement& element) {
  if (role(element) == role::window) return element;
  return ax::element(element, attribute::window);
}

std::optional<AXUIElement> application(const AXUIElement& element) {
  const auto pid = element.primitives().getPid();
  if (pid.error == axError::success) return element.primitives().createApplication(pid.value);
  defaultLogger().error("Error: Failed to get Application element, error: " + std::to_string(pid.error));
  return std::nullopt;
}

bool isApplication(const AXUIElement& element) { return role(element) == role::application; }

std::vector<AXUIElement> children(const AXUIElement& element) {
  for (const auto candidate : {attribute::childrenInNavigationOrder, attribute::visibleChildren}) {
    if (auto found = elements(element, candidate); !found.empty()) return found;
  }
  return elements(element, attribute::children);
}

std::vector<AXUIElement> columns(const AXUIElement& element) { return elements(element, attribute::columns); }

std::vector<AXUIElement> rowHeaderElements(const AXUIElement& element) {
  return elements(element, attribute::rowHeaderUIElements);
}

std::vector<AXUIElement> selectedRows(const AXUIElement& element) { return elements(element, attribute::selectedRows); }

std::vector<AXUIElement> selectedCells(const AXUIElement& element) {
  return elements(element, attribute::selectedCells);
}

std::vector<AXUIElement> selectedChildren(const AXUIElement& element) {
  return elements(element, attribute::selectedChildren);
}

std::optional<CFRange> columnIndexRange(const AXUIElement& element) {
  return read<CFRange>(element, attribute::columnIndexRange);
}

std::optional<CFRange> rowIndexRange(const AXUIElement& element) {
  return read<CFRange>(element, attribute::rowIndexRange);
}

bool isSelected(const AXUIElement& element) { return readBoolean(element, attribute::selected); }
bool isFocused(const AXUIElement& element) { return readBoolean(element, attribute::focused); }

std::optional<AXUIElement> systemWideFocusedElement(Accessibility& accessibility) {
  return focusedElement(accessibility.createSystemWide());
}

std::optional<AXUIElement> elementAt(Accessibility& accessibility, CGPoint point) {
  const auto systemWide = accessibility.createSystemWide();
  auto found = systemWide.primitives().copyElementAtPosition(static_cast<float>(point.x), static_cast<float>(point.y));
  if (found.error == axError::success && found.value) return std::move(found.value);
  defaultLogger().debug("Error: Failed to get element at position {" + coordinateText(point.x) + ", " +
                        coordinateText(point.y) + "}, error: " + std::to_string(found.error));
  return std::nullopt;
}

std::optional<AXUIElement> focusedWindow(const std::optional<AXUIElement>& application) {
  if (!application) return std::nullopt;
  return ax::element(*application, attribute::focusedWindow);
}

}  // namespace norra::ax
