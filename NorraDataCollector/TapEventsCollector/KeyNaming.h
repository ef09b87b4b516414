// The names of keys, as they are sent.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/EventTap.h"

namespace norra {

/// The modifiers that make a key press a key combination; shift and caps lock are not among them.
inline constexpr std::uint64_t shortcutModifiers = modifierFlag::control | modifierFlag::option |
                                                   modifierFlag::command | modifierFlag::numericPad |
                                                   modifierFlag::help | modifierFlag::function;

/// "unknown" for a key without a name.
std::string_view toString(NSSpecialKey key);

/// The names of the flags that are set, such as "Shift + Command"; nothing where none is that has a name.
std::optional<std::string> modifierFlagsToString(std::uint64_t modifierFlags);

/// The modifiers, the special key and the characters, without those that are absent or empty, joined by " + ".
std::string keyText(const NSEvent& event);

}  // namespace norra
