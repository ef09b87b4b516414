// Elements that answer from memory with next to no work of their own, so that what is measured is the core.
#pragma once

#include <deque>
#include <utility>
#include <vector>

#include "Platform/Accessibility.h"

namespace norra::benchmarks {

class ConstantElement;

/// One attribute read of one element, or of its action names where the attribute is empty.
struct Read {
  const ConstantElement* element = nullptr;
  std::string_view attribute;
};

class ConstantElement final : public AXUIElementPrimitives {
 public:
  /// The names must outlive the element.
  using Attributes = std::vector<std::pair<std::string_view, AXAttributeValue>>;

  /// Elements are made by a ConstantTree.
  explicit ConstantElement(Attributes attributes) : attributes_(std::move(attributes)) {}

  void set(std::string_view attribute, AXAttributeValue value) {
    attributes_.emplace_back(attribute, std::move(value));
  }
  void setActions(std::vector<std::string> actions) { actions_ = std::move(actions); }

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<ProcessIdentifier> getPid() const override { return {axError::success, 1}; }
  AXUIElement createApplication(ProcessIdentifier process) const override;
  std::optional<std::string> roleDescription(std::string_view, std::optional<std::string_view>) const override {
    return "control";
  }
  bool isEqual(const AXUIElementPrimitives& other) const override { return this == &other; }

  /// From now on every read is noted there; null: none is.
  static void noteReads(std::vector<Read>* reads);

 private:
  Attributes attributes_;
  std::vector<std::string> actions_;
};

/// Owns elements. They may refer to each other in a circle.
class ConstantTree {
 public:
  ConstantElement& add(std::string_view role, ConstantElement::Attributes attributes = {});
  /// A handle that does not own the element.
  static AXUIElement handle(const ConstantElement& element);

  /// Makes one the parent of the other, but not the other a child of the one.
  static void setParent(ConstantElement& element, const ConstantElement& parent);

 private:
  std::deque<ConstantElement> elements_;
};

/// Does the reads again and nothing else.
void repeat(const std::vector<Read>& reads);

}  // namespace norra::benchmarks
