#include "Platform/Linux/accessibility/AtspiApplicationElement.h"

#include <array>
#include <cerrno>
#include <csignal>

#include "Platform/Linux/accessibility/WindowElement.h"
#include "Platform/Linux/elements/RoleDescriptions.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
constexpr std::array attributeNames{"AXRole"sv, "AXTitle"sv, "AXChildren"sv, "AXFocusedUIElement"sv,
                                    "AXFocusedWindow"sv};

AttributeResult elementOrNothing(AtspiContext& context, const AtspiReference& reference) {
  return reference.isNull() ? noValue() : valueOf(context.element(reference));
}

/// The window of the application's own that has a title; dialogs and windows without a toolkit have one only for the X
/// server.
AttributeResult focusedWindow(AtspiContext& context, ProcessIdentifier process, const AtspiReference& root) {
  const auto window = root.isNull() ? AtspiReference{} : activeWindowOf(context, root);
  if (!window.isNull()) {
    const ElementView view(context, context.reader(), window);
    if (!view.needOnly(Ask::name).name.empty()) return valueOf(context.element(window));
  }
  if (auto onScreen = activeX11WindowOf(context, process)) return valueOf(*std::move(onScreen));
  return elementOrNothing(context, window);
}

/// Of an application that has no root, or not yet.
AXError whyNoRoot(ProcessIdentifier process) {
  const bool hasEnded = kill(process, 0) != 0 && errno == ESRCH;
  return hasEnded ? axError::invalidUIElement : axError::cannotComplete;
}

AttributeResult titleOfRoot(const ElementView& root) { return textOrNoValue(root.needOnly(Ask::name).name); }

}  // namespace

AXResult<AXAttributeValue> AtspiApplicationElement::copyAttributeValue(std::string_view attribute) const {
  auto& reader = context_.reader();
  const auto root = context_.processes.rootOf(process_, reader);
  if (attribute == "AXFocusedUIElement") return elementOrNothing(context_, focusedElementOf(context_, process_));
  if (attribute == "AXFocusedWindow") return focusedWindow(context_, process_, root);
  if (root.isNull()) return failed(whyNoRoot(process_));
  if (attribute == "AXRole") return valueOf(std::string("AXApplication"));
  const ElementView view(context_, reader, root);
  if (attribute == "AXTitle") return titleOfRoot(view);
  if (attribute == "AXChildren") return childrenOf(view);
  return unsupported();
}

AXResult<std::vector<std::string>> AtspiApplicationElement::copyAttributeNames() const {
  if (!hasRoot()) return {whyNoRoot(process_), {}};
  return {axError::success, std::vector<std::string>(attributeNames.begin(), attributeNames.end())};
}

AXResult<std::vector<std::string>> AtspiApplicationElement::copyActionNames() const {
  return {hasRoot() ? axError::success : whyNoRoot(process_), {}};
}

bool AtspiApplicationElement::hasRoot() const {
  return !context_.processes.rootOf(process_, context_.reader()).isNull();
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
