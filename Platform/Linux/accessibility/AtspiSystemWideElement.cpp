#include "Platform/Linux/accessibility/AtspiSystemWideElement.h"

#include "Platform/Linux/elements/RoleDescriptions.h"
#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/pointer/PointedElement.h"

namespace norra::linux_desktop {

AXResult<AXAttributeValue> AtspiSystemWideElement::copyAttributeValue(std::string_view attribute) const {
  if (attribute != "AXFocusedUIElement") return {axError::attributeUnsupported, {}};
  const auto window = context_.windows.activeWindow();
  if (!window || window->process == 0) return {axError::noValue, {}};
  const auto focused = focusedElementOf(context_, window->process);
  if (focused.isNull()) return {axError::noValue, {}};
  return {axError::success, context_.element(focused)};
}

AXResult<std::optional<AXUIElement>> AtspiSystemWideElement::copyElementAtPosition(float x, float y) const {
  const auto found = elementAt(context_, {x, y});
  if (found.isNull()) return {axError::success, std::nullopt};
  return {axError::success, context_.element(found)};
}

std::optional<std::string> AtspiSystemWideElement::roleDescription(std::string_view role,
                                                                   std::optional<std::string_view> subrole) const {
  return englishRoleDescription(role, subrole);
}

}  // namespace norra::linux_desktop
