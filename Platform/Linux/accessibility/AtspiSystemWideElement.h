// The element that stands for the whole desktop: what lies at a point, and what has the keyboard focus, in whatever
// application.
#pragma once

#include "Platform/Linux/accessibility/ElementHandles.h"

namespace norra::linux_desktop {

class AtspiSystemWideElement final : public DesktopElement {
 public:
  AtspiSystemWideElement(const ElementHandles& handles, Focus& focus, PointedElement& pointed, WindowsOnScreen& windows,
                         Pictures pictures)
      : DesktopElement(handles), focus_(focus), pointed_(pointed), windows_(windows), pictures_(pictures) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override {
    return {axError::success, {"AXFocusedUIElement"}};
  }
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::illegalArgument, 0}; }
  bool isEqual(const AXUIElementPrimitives& other) const override {
    return dynamic_cast<const AtspiSystemWideElement*>(&other) != nullptr;
  }

 private:
  AXUIElement pictured(const AtspiReference& focused) const;

  Focus& focus_;
  PointedElement& pointed_;
  WindowsOnScreen& windows_;
  const Pictures pictures_;
};

}  // namespace norra::linux_desktop
