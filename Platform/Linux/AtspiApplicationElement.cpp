#include "Platform/Linux/AtspiApplicationElement.h"

#include <array>

#include "Platform/Linux/AtspiFocus.h"
#include "Platform/Linux/AtspiStructure.h"
#include "Platform/Linux/ElementView.h"
#include "Platform/Linux/RoleDescriptions.h"

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
constexpr std::array attributeNames{"AXRole"sv, "AXTitle"sv, "AXChildren"sv, "AXFocusedUIElement"sv,
                                    "AXFocusedWindow"sv};

AttributeResult elementOrNothing(AtspiContext& context, const AtspiReference& reference) {
  return reference.isNull() ? noValue() : valueOf(context.element(reference));
}

AttributeResult titleOfRoot(const ElementView& root) { return textOrNoValue(root.needOnly(Ask::name).name); }

}  // namespace

AXResult<AXAttributeValue> AtspiApplicationElement::copyAttributeValue(std::string_view attribute) const {
  auto& reader = context_.reader();
  const auto root = context_.processes.rootOf(process_, reader);
  if (attribute == "AXFocusedUIElement") return elementOrNothing(context_, focusedElementOf(context_, process_));
  if (root.isNull()) return failed(axError::cannotComplete);
  if (attribute == "AXRole") return valueOf(std::string("AXApplication"));
  if (attribute == "AXFocusedWindow") return elementOrNothing(context_, activeWindowOf(context_, root));
  const ElementView view(context_, reader, root);
  if (attribute == "AXTitle") return titleOfRoot(view);
  if (attribute == "AXChildren") return childrenOf(view);
  return unsupported();
}

AXResult<std::vector<std::string>> AtspiApplicationElement::copyAttributeNames() const {
  return {axError::success, std::vector<std::string>(attributeNames.begin(), attributeNames.end())};
}

AXResult<std::optional<AXUIElement>> AtspiApplicationElement::copyElementAtPosition(float /*x*/, float /*y*/) const {
  return {axError::illegalArgument, std::nullopt};
}

std::optional<std::string> AtspiApplicationElement::roleDescription(std::string_view role,
                                                                    std::optional<std::string_view> subrole) const {
  return englishRoleDescription(role, subrole);
}

bool AtspiApplicationElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* application = dynamic_cast<const AtspiApplicationElement*>(&other);
  return application && application->process_ == process_;
}

}  // namespace norra::linux_desktop
