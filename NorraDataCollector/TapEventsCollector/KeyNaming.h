// The names of keys, as they are sent. The texts are part of the wire format, with their irregular spellings, and do
// not depend on the language of the desktop.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/EventTap.h"

namespace norra {

/// The modifiers that make a key press a key combination; shift and caps lock are not among them.
inline constexpr NSEventModifierFlags shortcutModifiers = modifierFlag::control | modifierFlag::option |
                                                          modifierFlag::command | modifierFlag::numericPad |
                                                          modifierFlag::help | modifierFlag::function;

/// "unknown" for a key without a name.
std::string_view toString(NSEvent::SpecialKey key);

/// The names of the flags that are set, such as "Shift + Command"; nothing where none is that has a name.
std::optional<std::string> toString(NSEventModifierFlags modifierFlags);

/// The modifiers, the special key and the characters, without those that are absent or empty, joined by " + ".
std::string keyText(const NSEvent& event);

}  // namespace norra
