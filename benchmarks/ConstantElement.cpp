#include "benchmarks/ConstantElement.h"

#include <benchmark/benchmark.h>

#include "NorraDataCollector/elements/AccessibilityConstants.h"

namespace norra::benchmarks {
namespace {

std::vector<Read>* notedReads = nullptr;

}  // namespace

AXResult<AXAttributeValue> ConstantElement::copyAttributeValue(std::string_view attribute) const {
  if (notedReads != nullptr) notedReads->push_back({this, attribute});
  for (const auto& [name, value] : attributes_) {
    if (name == attribute) return {axError::success, value};
  }
  return {axError::attributeUnsupported, {}};
}

AXResult<std::vector<std::string>> ConstantElement::copyActionNames() const {
  if (notedReads != nullptr) notedReads->push_back({this, {}});
  return {axError::success, actions_};
}

AXUIElement ConstantElement::createApplication(ProcessIdentifier) const { return ConstantTree::handle(*this); }

void ConstantElement::noteReads(std::vector<Read>* reads) { notedReads = reads; }

ConstantElement& ConstantTree::add(std::string_view role, ConstantElement::Attributes attributes) {
  auto& element = elements_.emplace_back(std::move(attributes));
  element.set(attribute::role, std::string(role));
  return element;
}

AXUIElement ConstantTree::handle(const ConstantElement& element) {
  static const auto owner = std::make_shared<char>();  // counts references as a real element does
  return AXUIElement(std::shared_ptr<const AXUIElementPrimitives>(owner, &element));
}

void ConstantTree::setParent(ConstantElement& element, const ConstantElement& parent) {
  element.set(attribute::parent, handle(parent));
}

void repeat(const std::vector<Read>& reads) {
  for (const auto& [element, attribute] : reads) {
    if (attribute.empty()) {
      benchmark::DoNotOptimize(element->copyActionNames());
    } else {
      benchmark::DoNotOptimize(element->copyAttributeValue(attribute));
    }
  }
}

}  // namespace norra::benchmarks
