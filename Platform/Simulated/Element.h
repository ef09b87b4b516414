// One element of the simulated desktop, which answers from its description. It keeps identifiers, and makes handles of
// them when it is read; so an element can be replaced while others refer to it.
#pragma once

#include "Platform/Simulated/DesktopDescription.h"

namespace norra::simulated {

class AccessibilityTree;

/// One element of the tree. There is one object for each element, so that identity is equality.
class Element final : public AXUIElementPrimitives, public std::enable_shared_from_this<Element> {
 public:
  /// The tree outlives its elements.
  Element(AccessibilityTree& tree, ElementDescription description);

  AXUIElement handle() const { return AXUIElement(shared_from_this()); }
  std::optional<ProcessIdentifier> process() const { return description_.process; }
  /// What registering the notification gives.
  AXError registrationResult(const std::string& notification) const;

  void replaceAttributes(const Attributes& attributes);
  void replaceActions(std::vector<std::string> actions) { description_.actions = std::move(actions); }
  /// Every read fails from now on.
  void destroy() { isDestroyed_ = true; }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override;
  AXResult<ProcessIdentifier> getPid() const override;
  AXUIElement createApplication(ProcessIdentifier process) const override;
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override;
  bool isEqual(const AXUIElementPrimitives& other) const override { return this == &other; }

 private:
  bool isGone() const;

  AccessibilityTree& tree_;
  ElementDescription description_;
  bool isDestroyed_ = false;
};

}  // namespace norra::simulated
