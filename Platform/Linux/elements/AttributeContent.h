// What attributes hold, in values: another element is named, not held.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Which part of an object an element is. Tables that have cells only get their rows and columns made up; of the root
/// of an application the whole application is one.
struct AtspiPart {
  enum class Kind : std::uint8_t { whole, row, column, application };
  Kind kind = Kind::whole;
  std::int32_t index = 0;
  bool operator==(const AtspiPart&) const = default;
};

/// What names an element.
struct ElementKey {
  AtspiReference reference;
  AtspiPart part = {};
  bool operator==(const ElementKey&) const = default;
};

/// The first alternative is nothing.
using AttributeContent =
    std::variant<std::monostate, std::string, NSNumber, ElementKey, std::vector<ElementKey>, NSURL, CFRange>;
using AttributeResult = AXResult<AttributeContent>;

inline AttributeResult noValue() { return {axError::noValue, {}}; }
inline AttributeResult unsupported() { return {axError::attributeUnsupported, {}}; }
inline AttributeResult failed(AXError error) { return {error, {}}; }

template <typename Value>
AttributeResult valueOf(Value value) {
  return {axError::success, AttributeContent(std::move(value))};
}

/// An empty text is no value.
inline AttributeResult textOrNoValue(std::string text) { return text.empty() ? noValue() : valueOf(std::move(text)); }

inline AttributeResult truth(bool value) { return valueOf(NSNumber{value}); }

inline AttributeResult elementNamed(AtspiReference reference, AtspiPart part = {}) {
  return valueOf(ElementKey{std::move(reference), part});
}

}  // namespace norra::linux_desktop
