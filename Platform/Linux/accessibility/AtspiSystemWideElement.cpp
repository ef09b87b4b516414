#include "Platform/Linux/accessibility/AtspiSystemWideElement.h"

#include "Platform/Linux/accessibility/FocusPicture.h"
#include "Platform/Linux/accessibility/PressPictures.h"
#include "Platform/Linux/accessibility/WindowElement.h"

namespace norra::linux_desktop {
namespace {

// An element that was found to have the focus, not told of, is not asked whether it still has it: it may have lost it
// by what the user does now.
std::optional<AXUIElement> picturedIn(ProcessIdentifier process, FocusPicture* picture, Focus& focus) {
  const auto focused = picture ? picture->focused() : AtspiReference{};
  if (focused.isNull() || focus.settle(focused.busName) != focused) return std::nullopt;
  auto element = picture->of(focused);
  return element && element->primitives().getPid().value == process ? element : std::nullopt;
}

}  // namespace

AXResult<AXAttributeValue> AtspiSystemWideElement::copyAttributeValue(std::string_view attribute) const {
  if (attribute != "AXFocusedUIElement") return {axError::attributeUnsupported, {}};
  focus_.lastInput().noteKey();  // nothing else asks for it
  auto window = windows_.windowOfInput();
  if (!window || window->process == 0) return {axError::noValue, {}};
  if (auto known = picturedIn(window->process, pictures_.focused, focus_)) return {axError::success, *std::move(known)};
  const auto focused = focus_.of(window->process);
  if (!focused.isNull()) return {axError::success, pictured(focused)};
  return {axError::success, AXUIElement(std::make_shared<WindowElement>(handles(), *std::move(window)))};
}

AXUIElement AtspiSystemWideElement::pictured(const AtspiReference& focused) const {
  auto known = pictures_.focused ? pictures_.focused->of(focused) : std::nullopt;
  return known ? *std::move(known) : handles().element(focused);
}

AXResult<std::optional<AXUIElement>> AtspiSystemWideElement::copyElementAtPosition(float x, float y) const {
  if (auto pressed = pictures_.pressed ? pictures_.pressed->elementAt({x, y}) : std::nullopt) {
    focus_.highlightedItems().clicked(windows_.inApplication({x, y}), std::chrono::steady_clock::now());
    return {axError::success, std::move(pressed)};
  }
  const auto found = pointed_.at({x, y});
  if (found.isNull()) return {axError::success, std::nullopt};
  return {axError::success, handles().element(found)};
}

}  // namespace norra::linux_desktop
