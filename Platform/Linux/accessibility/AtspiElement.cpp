#include "Platform/Linux/accessibility/AtspiElement.h"

#include <algorithm>
#include <array>

#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/RoleDescriptions.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Tables.h"
#include "Platform/Linux/elements/Value.h"
#include "Platform/Linux/reading/ElementView.h"

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
AttributeResult isSelected(const ElementView& view) { return truth(view.hasState(AtspiState::selected)); }

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

}  // namespace

AXResult<AXAttributeValue> AtspiElement::copyAttributeValue(std::string_view attribute) const {
  const auto* row = std::ranges::find(attributes, attribute, &Attribute::name);
  if (row == attributes.end() && part_.kind == AtspiPart::Kind::whole) return unsupported();
  if (isOfAFormerBus()) return failed(axError::invalidUIElement);
  const ElementView view(context_, context_.reader(), reference_);
  auto result = part_.kind == AtspiPart::Kind::whole ? row->read(view) : partAttribute(view, part_, attribute);
  if (result.error != axError::noValue && result.error != axError::attributeUnsupported) return result;
  // Of an element that has gone there is nothing to say, not even that it has no value.
  const auto& facts = context_.reader().known(reference_);
  if (!facts.asked.has(Ask::role) || facts.answered(Ask::role)) return result;
  return failed(facts.error(Ask::role));
}

AXResult<std::vector<std::string>> AtspiElement::copyAttributeNames() const {
  AXResult<std::vector<std::string>> names;
  names.error = ElementView(context_, context_.reader(), reference_).roleError();
  if (names.error != axError::success) return names;
  for (const auto& attribute : attributes) {
    const auto value = copyAttributeValue(attribute.name);
    if (value.error == axError::success || value.error == axError::noValue) names.value.emplace_back(attribute.name);
  }
  return names;
}

AXResult<std::vector<std::string>> AtspiElement::copyActionNames() const {
  if (part_.kind != AtspiPart::Kind::whole || isOfAFormerBus()) return {};
  return actionNamesOf(ElementView(context_, context_.reader(), reference_));
}

AXResult<std::optional<AXUIElement>> AtspiElement::copyElementAtPosition(float /*x*/, float /*y*/) const {
  return {axError::illegalArgument, std::nullopt};
}

AXResult<ProcessIdentifier> AtspiElement::getPid() const {
  if (isOfAFormerBus()) return {axError::invalidUIElement, 0};
  const auto process = context_.processes.processOf(reference_.busName, context_.reader());
  if (process == 0) return {axError::invalidUIElement, 0};
  return {axError::success, process};
}

AXUIElement AtspiElement::createApplication(ProcessIdentifier process) const { return context_.application(process); }

std::optional<std::string> AtspiElement::roleDescription(std::string_view role,
                                                         std::optional<std::string_view> subrole) const {
  return englishRoleDescription(role, subrole);
}

bool AtspiElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* element = dynamic_cast<const AtspiElement*>(&other);
  return element && element->reference_ == reference_ && element->part_ == part_ && element->generation_ == generation_;
}

}  // namespace norra::linux_desktop
