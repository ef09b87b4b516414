// Names and helpers of attribute values, for those who make them.
#pragma once

#include <string>
#include <utility>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

using AttributeResult = AXResult<AXAttributeValue>;

inline AttributeResult noValue() { return {axError::noValue, {}}; }
inline AttributeResult unsupported() { return {axError::attributeUnsupported, {}}; }
inline AttributeResult failed(AXError error) { return {error, {}}; }

template <typename Value>
AttributeResult valueOf(Value value) {
  return {axError::success, AXAttributeValue(std::move(value))};
}

/// An empty text is no value.
inline AttributeResult textOrNoValue(std::string text) { return text.empty() ? noValue() : valueOf(std::move(text)); }

inline AttributeResult truth(bool value) { return valueOf(NSNumber{value}); }

}  // namespace norra::linux_desktop
