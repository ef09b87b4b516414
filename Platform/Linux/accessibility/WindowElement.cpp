#include "Platform/Linux/accessibility/WindowElement.h"

#include "Platform/Linux/elements/RoleDescriptions.h"

namespace norra::linux_desktop {

AXResult<AXAttributeValue> WindowElement::copyAttributeValue(std::string_view attribute) const {
  if (attribute == "AXRole") return {axError::success, std::string("AXWindow")};
  if (attribute == "AXTitle") return {axError::success, window_.title};
  return {axError::attributeUnsupported, {}};
}

AXResult<std::vector<std::string>> WindowElement::copyAttributeNames() const {
  return {axError::success, {"AXRole", "AXTitle"}};
}

AXResult<std::optional<AXUIElement>> WindowElement::copyElementAtPosition(float /*x*/, float /*y*/) const {
  return {axError::illegalArgument, std::nullopt};
}

std::optional<std::string> WindowElement::roleDescription(std::string_view role,
                                                          std::optional<std::string_view> subrole) const {
  return englishRoleDescription(role, subrole);
}

bool WindowElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* window = dynamic_cast<const WindowElement*>(&other);
  return window && window->window_.window == window_.window;
}

std::optional<AXUIElement> activeX11WindowOf(AtspiContext& context, ProcessIdentifier process) {
  auto window = context.windows.activeWindow();
  if (!window || window->process != process) return std::nullopt;
  return AXUIElement(std::make_shared<WindowElement>(context, *std::move(window)));
}

}  // namespace norra::linux_desktop
