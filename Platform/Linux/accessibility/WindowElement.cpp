#include "Platform/Linux/accessibility/WindowElement.h"

namespace norra::linux_desktop {

AXResult<AXAttributeValue> WindowElement::copyAttributeValue(std::string_view attribute) const {
  if (attribute == "AXRole") return {axError::success, std::string("AXWindow")};
  if (attribute == "AXTitle") return {axError::success, window_.title};
  return {axError::attributeUnsupported, {}};
}

bool WindowElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* window = dynamic_cast<const WindowElement*>(&other);
  return window && window->window_.window == window_.window;
}

}  // namespace norra::linux_desktop
