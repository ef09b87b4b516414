// A window as the display server knows it, for an application that does not tell of its windows itself.
#pragma once

#include <utility>

#include "Platform/Linux/accessibility/ElementHandles.h"

namespace norra::linux_desktop {

/// Has a role and the title that it had when it was looked up, and nothing in it.
class WindowElement final : public DesktopElement {
 public:
  WindowElement(const ElementHandles& handles, WindowOnScreen window)
      : DesktopElement(handles), window_(std::move(window)) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override {
    return {axError::success, {"AXRole", "AXTitle"}};
  }
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, window_.process}; }
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  const WindowOnScreen window_;
};

}  // namespace norra::linux_desktop
