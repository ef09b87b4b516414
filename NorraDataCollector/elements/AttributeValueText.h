// Attribute values as texts.
#pragma once

#include <string>
#include <string_view>

#include "Platform/Accessibility.h"

namespace norra {

/// A text is its own characters, a number its decimal form (a Boolean "1" or "0"), a URL its text; an element, a list
/// and a packed value are named by their type, another object by its own description; nothing is the empty text.
std::string description(const AXAttributeValue& value);

/// "CFString", "CFNumber", "CFBoolean", "CFArray", "CFURL", "AXValue", "AXUIElement" or "CFType".
std::string_view typeName(const AXAttributeValue& value);

/// The decimal form without an exponent; without a fraction where the number is whole.
std::string decimalText(double number);

}  // namespace norra
