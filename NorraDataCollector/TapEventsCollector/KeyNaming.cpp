#include "NorraDataCollector/TapEventsCollector/KeyNaming.h"

#include <algorithm>
#include <array>

namespace norra {
namespace {

struct SpecialKeyName {
  std::uint32_t codePoint;
  std::string_view name;
};

/// The irregular spelling of some names is part of what is sent.
constexpr std::array specialKeyNames{
    SpecialKeyName{0x0003, "enter"},
    SpecialKeyName{0x0008, "backspace"},
    SpecialKeyName{0x0009, "tab"},
    SpecialKeyName{0x000A, "newline"},
    SpecialKeyName{0x000C, "form feed"},
    SpecialKeyName{0x000D, "carriage return"},
    SpecialKeyName{0x0019, "back tab"},
    SpecialKeyName{0x007F, "delete"},
    SpecialKeyName{0x2028, "line separator"},
    SpecialKeyName{0x2029, "paragraph separator"},
    SpecialKeyName{0xF700, "up arrow"},
    SpecialKeyName{0xF701, "down arrow"},
    SpecialKeyName{0xF702, "left Arrow"},
    SpecialKeyName{0xF703, "rightArrow"},
    SpecialKeyName{0xF704, "f1"},
    SpecialKeyName{0xF705, "f2"},
    SpecialKeyName{0xF706, "f3"},
    SpecialKeyName{0xF707, "f4"},
    SpecialKeyName{0xF708, "f5"},
    SpecialKeyName{0xF709, "f6"},
    SpecialKeyName{0xF70A, "f7"},
    SpecialKeyName{0xF70B, "f8"},
    SpecialKeyName{0xF70C, "f9"},
    SpecialKeyName{0xF70D, "f10"},
    SpecialKeyName{0xF70E, "f11"},
    SpecialKeyName{0xF70F, "f12"},
    SpecialKeyName{0xF710, "f13"},
    SpecialKeyName{0xF711, "f14"},
    SpecialKeyName{0xF712, "f15"},
    SpecialKeyName{0xF713, "f16"},
    SpecialKeyName{0xF714, "f17"},
    SpecialKeyName{0xF715, "f18"},
    SpecialKeyName{0xF716, "f19"},
    SpecialKeyName{0xF717, "f20"},
    SpecialKeyName{0xF718, "f21"},
    SpecialKeyName{0xF719, "f22"},
    SpecialKeyName{0xF71A, "f23"},
    SpecialKeyName{0xF71B, "f24"},
    SpecialKeyName{0xF71C, "f25"},
    SpecialKeyName{0xF71D, "f26"},
    SpecialKeyName{0xF71E, "f27"},
    SpecialKeyName{0xF71F, "f28"},
    SpecialKeyName{0xF720, "f29"},
    SpecialKeyName{0xF721, "f30"},
    SpecialKeyName{0xF722, "f31"},
    SpecialKeyName{0xF723, "f32"},
    SpecialKeyName{0xF724, "f33"},
    SpecialKeyName{0xF725, "f34"},
    SpecialKeyName{0xF726, "f35"},
    SpecialKeyName{0xF727, "insert"},
    SpecialKeyName{0xF728, "delete forward"},
    SpecialKeyName{0xF729, "home"},
    SpecialKeyName{0xF72A, "begin"},
    SpecialKeyName{0xF72B, "end"},
    SpecialKeyName{0xF72C, "page up"},
    SpecialKeyName{0xF72D, "page down"},
    SpecialKeyName{0xF72E, "print screen"},
    SpecialKeyName{0xF72F, "scroll lock"},
    SpecialKeyName{0xF730, "pause"},
    SpecialKeyName{0xF731, "sys req"},
    SpecialKeyName{0xF732, "break"},
    SpecialKeyName{0xF733, "reset"},
    SpecialKeyName{0xF734, "stop"},
    SpecialKeyName{0xF735, "menu"},
    SpecialKeyName{0xF736, "user"},
    SpecialKeyName{0xF737, "system"},
    SpecialKeyName{0xF738, "print"},
    SpecialKeyName{0xF739, "clear line"},
    SpecialKeyName{0xF73A, "clear display"},
    SpecialKeyName{0xF73B, "insertLine"},
    SpecialKeyName{0xF73C, "delete line"},
    SpecialKeyName{0xF73D, "insert character"},
    SpecialKeyName{0xF73E, "delete character"},
    SpecialKeyName{0xF73F, "prev"},
    SpecialKeyName{0xF740, "next"},
    SpecialKeyName{0xF741, "select"},
    SpecialKeyName{0xF742, "execute"},
    SpecialKeyName{0xF743, "undo"},
    SpecialKeyName{0xF744, "redo"},
    SpecialKeyName{0xF745, "find"},
    SpecialKeyName{0xF746, "help"},
    SpecialKeyName{0xF747, "mode switch"},
};
static_assert(specialKeyNames.size() == 82);
static_assert(std::ranges::is_sorted(specialKeyNames, {}, &SpecialKeyName::codePoint));

struct ModifierName {
  std::uint64_t flag;
  std::string_view name;
};

constexpr std::array modifierNames{
    ModifierName{modifierFlag::capsLock, "CapsLock"}, ModifierName{modifierFlag::shift, "Shift"},
    ModifierName{modifierFlag::control, "Control"},   ModifierName{modifierFlag::option, "Option"},
    ModifierName{modifierFlag::command, "Command"},   ModifierName{modifierFlag::numericPad, "NumericPad"},
    ModifierName{modifierFlag::help, "Help"},         ModifierName{modifierFlag::function, "Function"}};

void appendJoined(std::string& joined, std::string_view part) {
  if (part.empty()) return;
  if (!joined.empty()) joined += " + ";
  joined += part;
}

}  // namespace

std::string_view toString(NSSpecialKey key) {
  const auto codePoint = static_cast<std::uint32_t>(key);
  const auto found = std::ranges::lower_bound(specialKeyNames, codePoint, {}, &SpecialKeyName::codePoint);
  return found != specialKeyNames.end() && found->codePoint == codePoint ? found->name : "unknown";
}

std::optional<std::string> modifierFlagsToString(std::uint64_t modifierFlags) {
  std::string joined;
  for (const auto& [flag, name] : modifierNames) {
    if ((modifierFlags & flag) != 0) appendJoined(joined, name);
  }
  if (joined.empty()) return std::nullopt;
  return joined;
}

std::string keyText(const NSEvent& event) {
  auto text = modifierFlagsToString(event.modifierFlags).value_or("");
  if (event.specialKey) {
    appendJoined(text, toString(*event.specialKey));
  } else {
    appendJoined(text, event.charactersIgnoringModifiers.value_or(""));
  }
  return text;
}

}  // namespace norra
