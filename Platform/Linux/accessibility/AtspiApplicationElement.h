// The root of an application, known by its process.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiContext.h"

namespace norra::linux_desktop {

class AtspiApplicationElement final : public AXUIElementPrimitives {
 public:
  AtspiApplicationElement(AtspiContext& context, ProcessIdentifier process) : context_(context), process_(process) {}

  ProcessIdentifier process() const { return process_; }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, process_}; }
  AXUIElement createApplication(ProcessIdentifier process) const override { return context_.application(process); }
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  bool hasRoot() const;

  AtspiContext& context_;
  const ProcessIdentifier process_;
};

}  // namespace norra::linux_desktop
