// One element of an application: an AT-SPI object, or a row or column made up for a table.
//
// It holds names and nothing that was read. What it answers, the rooms below find out, one function for each attribute;
// here stands which. A handle outlives its element and even the bus that it was found on: names are given anew on
// another bus, so there it refuses every read.
#pragma once

#include "Platform/Linux/accessibility/ElementHandles.h"

namespace norra::linux_desktop {

class AtspiElement final : public DesktopElement {
 public:
  AtspiElement(const ElementHandles& handles, AtspiSession& session, ElementKey key)
      : DesktopElement(handles),
        session_(session),
        key_(std::move(key)),
        generation_(session.shared.bus.generation()) {}

  const AtspiReference& reference() const { return key_.reference; }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<ProcessIdentifier> getPid() const override;
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  bool isWhole() const { return key_.part.kind == AtspiPart::Kind::whole; }
  /// Its name may be another application's since then.
  bool isOfAFormerBus() const { return session_.shared.bus.generation() != generation_; }
  ElementView view() const { return {session_.reader(), key_.reference}; }

  AtspiSession& session_;
  const ElementKey key_;
  const std::uint64_t generation_;  // of the bus that it was found on
};

}  // namespace norra::linux_desktop
