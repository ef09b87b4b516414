// One element of an application: an AT-SPI object, or a row or column made up for a table.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/reading/AtspiContext.h"

namespace norra::linux_desktop {

class AtspiElement final : public AXUIElementPrimitives {
 public:
  AtspiElement(AtspiContext& context, AtspiReference reference, AtspiPart part)
      : context_(context),
        reference_(std::move(reference)),
        part_(part),
        generation_(context.shared.bus.generation()) {}

  const AtspiReference& reference() const { return reference_; }
  AtspiPart part() const { return part_; }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override;
  AXUIElement createApplication(ProcessIdentifier process) const override;
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  /// Its name may be another application's since then.
  bool isOfAFormerBus() const { return context_.shared.bus.generation() != generation_; }

  AtspiContext& context_;
  const AtspiReference reference_;
  const AtspiPart part_;
  const std::uint64_t generation_;  // of the bus that it was found on
};

}  // namespace norra::linux_desktop
