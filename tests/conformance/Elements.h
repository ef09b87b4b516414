// Reading elements in a test.
#pragma once

#include <string>
#include <vector>

#include "Platform/Accessibility.h"

namespace norra::conformance {

inline AXResult<AXAttributeValue> read(const AXUIElement& element, std::string_view attribute) {
  return element.primitives().copyAttributeValue(attribute);
}

/// Nothing where the read fails or gives another type.
template <typename Value>
std::optional<Value> valueOf(const AXUIElement& element, std::string_view attribute) {
  const auto result = read(element, attribute);
  const auto* value = std::get_if<Value>(&result.value);
  return result.error == axError::success && value != nullptr ? std::optional(*value) : std::nullopt;
}

/// The first element below this one, depth first, that is called so by its title or its description.
inline std::optional<AXUIElement> find(const AXUIElement& below, const std::string& name) {
  for (const auto& child :
       valueOf<std::vector<AXUIElement>>(below, "AXChildren").value_or(std::vector<AXUIElement>{})) {
    for (const auto* attribute : {"AXTitle", "AXDescription"}) {
      if (valueOf<std::string>(child, attribute) == name) return child;
    }
    if (auto found = find(child, name)) return found;
  }
  return std::nullopt;
}

inline std::optional<AXUIElement> parentOf(const AXUIElement& element) {
  return valueOf<AXUIElement>(element, "AXParent");
}

/// Whether it is the ancestor or the very element.
inline bool isWithin(AXUIElement element, const AXUIElement& ancestor) {
  for (std::optional<AXUIElement> current = element; current; current = parentOf(*current)) {
    if (*current == ancestor) return true;
  }
  return false;
}

}  // namespace norra::conformance
