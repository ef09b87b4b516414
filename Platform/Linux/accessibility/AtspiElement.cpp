#include "Platform/Linux/accessibility/AtspiElement.h"

#include <algorithm>
#include <array>

#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Tables.h"
#include "Platform/Linux/elements/Value.h"

namespace norra::linux_desktop {
namespace {

AttributeResult roleOf(const ElementView& view) {
  if (const auto error = view.roleError(); error != axError::success) return failed(error);
  return valueOf(std::string(mappedRole(view).role));
}

AttributeResult subroleOf(const ElementView& view) {
  if (const auto error = view.roleError(); error != axError::success) return failed(error);
  return textOrNoValue(std::string(mappedRole(view).subrole));
}

AttributeResult isFocused(const ElementView& view) { return truth(view.hasState(AtspiState::focused)); }

// A cell that is merely the current one is selected for who looks at it.
AttributeResult isSelected(const ElementView& view) {
  const bool isCurrent = view.role() == AtspiRole::tableCell && view.hasState(AtspiState::focused);
  return truth(isCurrent || view.hasState(AtspiState::selected));
}

struct Attribute {
  std::string_view name;
  AttributeResult (*read)(const ElementView&);
};

constexpr std::array attributes{
    Attribute{"AXRole", roleOf},
    Attribute{"AXSubrole", subroleOf},
    Attribute{"AXRoleDescription", roleDescriptionOf},
    Attribute{"AXTitle", titleOf},
    Attribute{"AXDescription", descriptionOf},
    Attribute{"AXValue", contentOf},
    Attribute{"AXPlaceholderValue", placeholderOf},
    Attribute{"AXHelp", helpOf},
    Attribute{"AXIdentifier", identifierOf},
    Attribute{"AXDOMIdentifier", domIdentifierOf},
    Attribute{"AXURL", urlOf},
    Attribute{"AXTitleUIElement", titleElementOf},
    Attribute{"AXParent", parentOf},
    Attribute{"AXChildren", childrenOf},
    Attribute{"AXWindow", windowOf},
    Attribute{"AXFocused", isFocused},
    Attribute{"AXSelected", isSelected},
    Attribute{"AXColumns", columnsOf},
    Attribute{"AXColumnIndexRange", columnIndexRangeOf},
    Attribute{"AXRowIndexRange", rowIndexRangeOf},
    Attribute{"AXRowHeaderUIElements", rowHeadersOf},
    Attribute{"AXSelectedRows", selectedRowsOf},
    Attribute{"AXSelectedCells", selectedCellsOf},
    Attribute{"AXSelectedChildren", selectedChildrenOf},
};

// Of an element that has gone there is nothing to say, not even that it has no value.
AttributeResult unlessGone(const ElementView& view, AttributeResult result) {
  if (result.error != axError::noValue && result.error != axError::attributeUnsupported) return result;
  const auto& facts = view.reader().known(view.reference());
  return !facts.asked.has(Ask::role) || facts.answered(Ask::role) ? result : failed(facts.error(Ask::role));
}

}  // namespace

AXResult<AXAttributeValue> AtspiElement::copyAttributeValue(std::string_view attribute) const {
  const auto* row = std::ranges::find(attributes, attribute, &Attribute::name);
  if (row == attributes.end() && isWhole()) return {axError::attributeUnsupported, {}};
  if (isOfAFormerBus()) return {axError::invalidUIElement, {}};
  const auto element = view();
  const auto* before = attribute == "AXValue" && isWhole() ? element.reader().valueBefore(reference()) : nullptr;
  if (before) return {axError::success, *before};
  auto result = isWhole() ? row->read(element) : partAttribute(element, key_.part, attribute);
  return handles().valueOf(unlessGone(element, std::move(result)));
}

AXResult<std::vector<std::string>> AtspiElement::copyAttributeNames() const {
  AXResult<std::vector<std::string>> names;
  names.error = view().roleError();
  if (names.error != axError::success) return names;
  for (const auto& attribute : attributes) {
    const auto value = copyAttributeValue(attribute.name);
    if (value.error == axError::success || value.error == axError::noValue) names.value.emplace_back(attribute.name);
  }
  return names;
}

AXResult<std::vector<std::string>> AtspiElement::copyActionNames() const {
  if (!isWhole() || isOfAFormerBus()) return {};
  return actionNamesOf(view());
}

AXResult<ProcessIdentifier> AtspiElement::getPid() const {
  if (isOfAFormerBus()) return {axError::invalidUIElement, 0};
  const auto process = session_.processes.processOf(reference().busName, session_.reader());
  if (process == 0) return {axError::invalidUIElement, 0};
  return {axError::success, process};
}

bool AtspiElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* element = dynamic_cast<const AtspiElement*>(&other);
  return element && element->key_ == key_ && element->generation_ == generation_;
}

}  // namespace norra::linux_desktop
