#include "NorraDataCollector/TapEventsCollector/KeyNaming.h"

#include <algorithm>
#include <array>

namespace norra {
namespace {

using Key = NSEvent::SpecialKey;

struct SpecialKeyName {
  Key key;
  std::string_view name;
};

/// The irregular spelling of some names is part of what is sent.
constexpr std::array specialKeyNames{
    SpecialKeyName{Key::enter, "enter"},
    SpecialKeyName{Key::backspace, "backspace"},
    SpecialKeyName{Key::tab, "tab"},
    SpecialKeyName{Key::newline, "newline"},
    SpecialKeyName{Key::formFeed, "form feed"},
    SpecialKeyName{Key::carriageReturn, "carriage return"},
    SpecialKeyName{Key::backTab, "back tab"},
    SpecialKeyName{Key::delete_, "delete"},
    SpecialKeyName{Key::lineSeparator, "line separator"},
    SpecialKeyName{Key::paragraphSeparator, "paragraph separator"},
    SpecialKeyName{Key::upArrow, "up arrow"},
    SpecialKeyName{Key::downArrow, "down arrow"},
    SpecialKeyName{Key::leftArrow, "left Arrow"},
    SpecialKeyName{Key::rightArrow, "rightArrow"},
    SpecialKeyName{Key::f1, "f1"},
    SpecialKeyName{Key::f2, "f2"},
    SpecialKeyName{Key::f3, "f3"},
    SpecialKeyName{Key::f4, "f4"},
    SpecialKeyName{Key::f5, "f5"},
    SpecialKeyName{Key::f6, "f6"},
    SpecialKeyName{Key::f7, "f7"},
    SpecialKeyName{Key::f8, "f8"},
    SpecialKeyName{Key::f9, "f9"},
    SpecialKeyName{Key::f10, "f10"},
    SpecialKeyName{Key::f11, "f11"},
    SpecialKeyName{Key::f12, "f12"},
    SpecialKeyName{Key::f13, "f13"},
    SpecialKeyName{Key::f14, "f14"},
    SpecialKeyName{Key::f15, "f15"},
    SpecialKeyName{Key::f16, "f16"},
    SpecialKeyName{Key::f17, "f17"},
    SpecialKeyName{Key::f18, "f18"},
    SpecialKeyName{Key::f19, "f19"},
    SpecialKeyName{Key::f20, "f20"},
    SpecialKeyName{Key::f21, "f21"},
    SpecialKeyName{Key::f22, "f22"},
    SpecialKeyName{Key::f23, "f23"},
    SpecialKeyName{Key::f24, "f24"},
    SpecialKeyName{Key::f25, "f25"},
    SpecialKeyName{Key::f26, "f26"},
    SpecialKeyName{Key::f27, "f27"},
    SpecialKeyName{Key::f28, "f28"},
    SpecialKeyName{Key::f29, "f29"},
    SpecialKeyName{Key::f30, "f30"},
    SpecialKeyName{Key::f31, "f31"},
    SpecialKeyName{Key::f32, "f32"},
    SpecialKeyName{Key::f33, "f33"},
    SpecialKeyName{Key::f34, "f34"},
    SpecialKeyName{Key::f35, "f35"},
    SpecialKeyName{Key::insert, "insert"},
    SpecialKeyName{Key::deleteForward, "delete forward"},
    SpecialKeyName{Key::home, "home"},
    SpecialKeyName{Key::begin, "begin"},
    SpecialKeyName{Key::end, "end"},
    SpecialKeyName{Key::pageUp, "page up"},
    SpecialKeyName{Key::pageDown, "page down"},
    SpecialKeyName{Key::printScreen, "print screen"},
    SpecialKeyName{Key::scrollLock, "scroll lock"},
    SpecialKeyName{Key::pause, "pause"},
    SpecialKeyName{Key::sysReq, "sys req"},
    SpecialKeyName{Key::break_, "break"},
    SpecialKeyName{Key::reset, "reset"},
    SpecialKeyName{Key::stop, "stop"},
    SpecialKeyName{Key::menu, "menu"},
    SpecialKeyName{Key::user, "user"},
    SpecialKeyName{Key::system, "system"},
    SpecialKeyName{Key::print, "print"},
    SpecialKeyName{Key::clearLine, "clear line"},
    SpecialKeyName{Key::clearDisplay, "clear display"},
    SpecialKeyName{Key::insertLine, "insertLine"},
    SpecialKeyName{Key::deleteLine, "delete line"},
    SpecialKeyName{Key::insertCharacter, "insert character"},
    SpecialKeyName{Key::deleteCharacter, "delete character"},
    SpecialKeyName{Key::prev, "prev"},
    SpecialKeyName{Key::next, "next"},
    SpecialKeyName{Key::select, "select"},
    SpecialKeyName{Key::execute, "execute"},
    SpecialKeyName{Key::undo, "undo"},
    SpecialKeyName{Key::redo, "redo"},
    SpecialKeyName{Key::find, "find"},
    SpecialKeyName{Key::help, "help"},
    SpecialKeyName{Key::modeSwitch, "mode switch"},
};
static_assert(specialKeyNames.size() == 82);
static_assert(std::ranges::is_sorted(specialKeyNames, {}, &SpecialKeyName::key));

struct ModifierName {
  NSEventModifierFlags flag;
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

std::string_view toString(NSEvent::SpecialKey key) {
  const auto found = std::ranges::lower_bound(specialKeyNames, key, {}, &SpecialKeyName::key);
  return found != specialKeyNames.end() && found->key == key ? found->name : "unknown";
}

std::optional<std::string> toString(NSEventModifierFlags modifierFlags) {
  std::string joined;
  for (const auto& [flag, name] : modifierNames) {
    if ((modifierFlags & flag) != 0) appendJoined(joined, name);
  }
  if (joined.empty()) return std::nullopt;
  return joined;
}

std::string keyText(const NSEvent& event) {
  auto text = toString(event.modifierFlags).value_or("");
  if (event.specialKey) {
    appendJoined(text, toString(*event.specialKey));
  } else {
    appendJoined(text, event.charactersIgnoringModifiers.value_or(""));
  }
  return text;
}

}  // namespace norra
