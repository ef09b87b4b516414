#include "Platform/Simulated/Element.h"

#include "Platform/Simulated/AccessibilityTree.h"

namespace norra::simulated {
namespace {

/// Turns what an attribute was described with into what a read of it gives.
class ReadContent {
 public:
  explicit ReadContent(const AccessibilityTree& tree) : tree_(tree) {}

  AXResult<AXAttributeValue> operator()(const ReadFailure& failure) const { return {failure.error, {}}; }
  AXResult<AXAttributeValue> operator()(const ElementReference& reference) const {
    return {axError::success, tree_.element(reference).handle()};
  }
  AXResult<AXAttributeValue> operator()(const std::vector<ElementReference>& references) const {
    std::vector<AXUIElement> elements;
    elements.reserve(references.size());
    for (const auto& reference : references) elements.push_back(tree_.element(reference).handle());
    return {axError::success, std::move(elements)};
  }
  template <typename Value>
  AXResult<AXAttributeValue> operator()(const Value& value) const {
    return {axError::success, value};
  }

 private:
  const AccessibilityTree& tree_;
};

}  // namespace

Element::Element(AccessibilityTree& tree, ElementDescription description)
    : tree_(tree), description_(std::move(description)) {}

AXError Element::registrationResult(const std::string& notification) const {
  const auto found = description_.notificationErrors.find(notification);
  return found == description_.notificationErrors.end() ? axError::success : found->second;
}

void Element::replaceAttributes(const Attributes& attributes) {
  for (const auto& [name, content] : attributes) description_.attributes[name] = content;
}

bool Element::isGone() const { return isDestroyed_ || tree_.isTerminated(*this); }

AXResult<AXAttributeValue> Element::copyAttributeValue(std::string_view attribute) const {
  tree_.countCall("AXUIElementCopyAttributeValue");
  if (isGone()) return {axError::invalidUIElement, {}};
  const auto found = description_.attributes.find(std::string(attribute));
  if (found == description_.attributes.end()) return {axError::attributeUnsupported, {}};
  return std::visit(ReadContent(tree_), found->second);
}

AXResult<std::vector<std::string>> Element::copyAttributeNames() const {
  tree_.countCall("AXUIElementCopyAttributeNames");
  if (isGone()) return {axError::invalidUIElement, {}};
  if (description_.attributeNamesError != axError::success) return {description_.attributeNamesError, {}};
  std::vector<std::string> names;
  for (const auto& [name, content] : description_.attributes) names.push_back(name);
  return {axError::success, std::move(names)};
}

AXResult<std::vector<std::string>> Element::copyActionNames() const {
  tree_.countCall("AXUIElementCopyActionNames");
  if (isGone()) return {axError::invalidUIElement, {}};
  if (description_.actionsError != axError::success) return {description_.actionsError, {}};
  return {axError::success, description_.actions};
}

AXResult<std::optional<AXUIElement>> Element::copyElementAtPosition(float x, float y) const {
  tree_.countCall("AXUIElementCopyElementAtPosition");
  return tree_.hitTest(x, y);
}

AXResult<ProcessIdentifier> Element::getPid() const {
  tree_.countCall("AXUIElementGetPid");
  if (!description_.process) return {axError::illegalArgument, 0};
  return {axError::success, *description_.process};
}

AXUIElement Element::createApplication(ProcessIdentifier process) const { return tree_.createApplication(process); }

std::optional<std::string> Element::roleDescription(std::string_view role,
                                                    std::optional<std::string_view> subrole) const {
  tree_.countCall("NSAccessibilityRoleDescription");
  return tree_.roleDescription(role, subrole);
}

}  // namespace norra::simulated
