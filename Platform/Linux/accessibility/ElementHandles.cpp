#include "Platform/Linux/accessibility/ElementHandles.h"

#include "Platform/Linux/accessibility/AtspiApplicationElement.h"
#include "Platform/Linux/accessibility/AtspiElement.h"
#include "Platform/Linux/accessibility/AtspiSystemWideElement.h"
#include "Platform/Linux/elements/RoleDescriptions.h"

namespace norra::linux_desktop {
namespace {

struct WithHandles {
  const ElementHandles& handles;

  AXAttributeValue operator()(const ElementKey& key) const { return handles.element(key); }
  AXAttributeValue operator()(const std::vector<ElementKey>& keys) const {
    std::vector<AXUIElement> elements;
    elements.reserve(keys.size());
    for (const auto& key : keys) elements.push_back(handles.element(key));
    return elements;
  }
  template <typename Value>
  AXAttributeValue operator()(const Value& value) const {
    return value;
  }
};

}  // namespace

AXUIElement ElementHandles::element(const ElementKey& key) const {
  if (key.part.kind == AtspiPart::Kind::application) {
    return application(session_.processes.processOf(key.reference.busName, session_.reader()));
  }
  return AXUIElement(std::make_shared<AtspiElement>(*this, session_, key));
}

AXUIElement ElementHandles::application(ProcessIdentifier process) const {
  return AXUIElement(std::make_shared<AtspiApplicationElement>(*this, session_, focus_, windows_, process));
}

AXUIElement ElementHandles::systemWide(Pictures pictures) const {
  return AXUIElement(std::make_shared<AtspiSystemWideElement>(*this, focus_, pointed_, windows_, pictures));
}

AXResult<AXAttributeValue> ElementHandles::valueOf(const AttributeResult& result) const {
  return {result.error, std::visit(WithHandles{*this}, result.value)};
}

std::optional<std::string> DesktopElement::roleDescription(std::string_view role,
                                                           std::optional<std::string_view> subrole) const {
  return englishRoleDescription(role, subrole);
}

}  // namespace norra::linux_desktop
