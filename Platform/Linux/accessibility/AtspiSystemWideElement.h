// The element that stands for the whole desktop.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiContext.h"

namespace norra::linux_desktop {

class AtspiSystemWideElement final : public AXUIElementPrimitives {
 public:
  explicit AtspiSystemWideElement(AtspiContext& context) : context_(context) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override {
    return {axError::success, {"AXFocusedUIElement"}};
  }
  AXResult<std::vector<std::string>> copyActionNames() const override { return {}; }
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::illegalArgument, 0}; }
  AXUIElement createApplication(ProcessIdentifier process) const override { return context_.application(process); }
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;
  bool isEqual(const AXUIElementPrimitives& other) const override {
    return dynamic_cast<const AtspiSystemWideElement*>(&other) != nullptr;
  }

 private:
  AtspiContext& context_;
};

}  // namespace norra::linux_desktop
