// A window as the X server knows it, for an application that does not tell of its windows itself.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiContext.h"

namespace norra::linux_desktop {

/// Has a role and the title that it had when it was looked up, and nothing in it.
class WindowElement final : public AXUIElementPrimitives {
 public:
  WindowElement(AtspiContext& context, WindowOnScreen window) : context_(context), window_(std::move(window)) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override { return {}; }
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, window_.process}; }
  AXUIElement createApplication(ProcessIdentifier process) const override { return context_.application(process); }
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  AtspiContext& context_;
  const WindowOnScreen window_;
};

/// The active window if it is one of the process; nothing otherwise.
std::optional<AXUIElement> activeX11WindowOf(AtspiContext& context, ProcessIdentifier process);

}  // namespace norra::linux_desktop
