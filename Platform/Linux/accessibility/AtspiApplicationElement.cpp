#include "Platform/Linux/accessibility/AtspiApplicationElement.h"

#include <array>
#include <cerrno>
#include <csignal>

#include "Platform/Linux/accessibility/WindowElement.h"
#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/following/WatchedEvents.h"

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
constexpr std::array attributeNames{"AXRole"sv, "AXTitle"sv, "AXChildren"sv, "AXFocusedUIElement"sv,
                                    "AXFocusedWindow"sv};

/// Of an application that has no root, or not yet.
AXError whyNoRoot(ProcessIdentifier process) {
  const bool hasEnded = kill(process, 0) != 0 && errno == ESRCH;
  return hasEnded ? axError::invalidUIElement : axError::cannotComplete;
}

AttributeResult attributeOfRoot(const ElementView& root, std::string_view attribute) {
  if (attribute == "AXRole") return valueOf(std::string("AXApplication"));
  if (attribute == "AXTitle") return textOrNoValue(root.needOnly(Ask::name).name);
  if (attribute == "AXChildren") return childrenOf(root);
  return unsupported();
}

std::string properTitle(const ElementView& window) {
  const auto& facts = window.needOnly({Ask::role, Ask::name});
  return properName(facts.name, static_cast<AtspiRole>(facts.role), window.toolkit());
}

}  // namespace

AXResult<AXAttributeValue> AtspiApplicationElement::copyAttributeValue(std::string_view attribute) const {
  const auto root = this->root();
  if (attribute == "AXFocusedUIElement") return followedElement();
  if (attribute == "AXFocusedWindow") return focusedWindow(root);
  if (root.isNull()) return {whyNoRoot(process_), {}};
  return handles().valueOf(attributeOfRoot(ElementView(session_.reader(), root), attribute));
}

// Of a window, a button or the like nothing is told but what is done to it, of a drop-down nothing while it is open.
AXResult<AXAttributeValue> AtspiApplicationElement::followedElement() const {
  const auto focused = focus_.of(process_);
  const bool isOfUse = !focused.isNull() && session_.applications.of(focused.busName)->focus.open() != focused &&
                       isFollowed(ElementView(session_.reader(), focused));
  return handleOrNothing(isOfUse ? focused : AtspiReference{});
}

AXResult<AXAttributeValue> AtspiApplicationElement::handleOrNothing(const AtspiReference& reference) const {
  return handles().valueOf(reference.isNull() ? noValue() : elementNamed(reference));
}

// Dialogs and windows without a toolkit have a title only for the X server, and others more of one: some toolkits add
// the application's name there.
AXResult<AXAttributeValue> AtspiApplicationElement::focusedWindow(const AtspiReference& root) const {
  auto& reader = session_.reader();
  const auto window = root.isNull() ? AtspiReference{} : activeWindowOf(ElementView(reader, root));
  const auto title = window.isNull() ? std::string() : properTitle(ElementView(reader, window));
  auto onScreen = windows_.activeWindow();
  const bool saysMore = onScreen && onScreen->process == process_ && onScreen->title.starts_with(title) &&
                        (title.empty() || onScreen->title.size() > title.size());
  if (!saysMore) return handleOrNothing(window);
  return {axError::success, AXUIElement(std::make_shared<WindowElement>(handles(), *std::move(onScreen)))};
}

AXResult<std::vector<std::string>> AtspiApplicationElement::copyAttributeNames() const {
  if (root().isNull()) return {whyNoRoot(process_), {}};
  return {axError::success, std::vector<std::string>(attributeNames.begin(), attributeNames.end())};
}

AXResult<std::vector<std::string>> AtspiApplicationElement::copyActionNames() const {
  return {root().isNull() ? whyNoRoot(process_) : axError::success, {}};
}

bool AtspiApplicationElement::isEqual(const AXUIElementPrimitives& other) const {
  const auto* application = dynamic_cast<const AtspiApplicationElement*>(&other);
  return application && application->process_ == process_;
}

}  // namespace norra::linux_desktop
