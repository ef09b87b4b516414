// Which keys of X are special keys: their keysyms, and the code points that the core knows them by.
#pragma once

#include <xkbcommon/xkbcommon-keysyms.h>

#include <array>
#include <optional>

#include "Platform/EventTap.h"

namespace norra::linux_desktop {

struct SpecialKeyOfKeysym {
  std::uint32_t keysym = 0;
  NSEvent::SpecialKey key = {};
};

/// The keysym of a code point that has no keysym of its own is this much larger.
inline constexpr std::uint32_t unicodeKeysym = 0x1000000;

/// But for F1 to F35, whose keysyms are as consecutive as their code points. The key with the label Print Screen has
/// the keysym Print; the key that deletes backwards has the code point 0x7F; Clear and Cancel are what later keyboards
/// name clear line and stop. Escape is a character.
inline constexpr auto specialKeysOfKeysyms = std::to_array<SpecialKeyOfKeysym>({
    {XKB_KEY_Return, NSEvent::SpecialKey::carriageReturn},
    {XKB_KEY_KP_Enter, NSEvent::SpecialKey::enter},
    {XKB_KEY_ISO_Enter, NSEvent::SpecialKey::enter},
    {XKB_KEY_Linefeed, NSEvent::SpecialKey::newline},
    {XKB_KEY_BackSpace, NSEvent::SpecialKey::delete_},
    {XKB_KEY_Delete, NSEvent::SpecialKey::deleteForward},
    {XKB_KEY_KP_Delete, NSEvent::SpecialKey::deleteForward},
    {XKB_KEY_Tab, NSEvent::SpecialKey::tab},
    {XKB_KEY_KP_Tab, NSEvent::SpecialKey::tab},
    {XKB_KEY_ISO_Left_Tab, NSEvent::SpecialKey::backTab},
    {XKB_KEY_hpBackTab, NSEvent::SpecialKey::backTab},
    {XKB_KEY_3270_BackTab, NSEvent::SpecialKey::backTab},
    {XKB_KEY_Up, NSEvent::SpecialKey::upArrow},
    {XKB_KEY_KP_Up, NSEvent::SpecialKey::upArrow},
    {XKB_KEY_Down, NSEvent::SpecialKey::downArrow},
    {XKB_KEY_KP_Down, NSEvent::SpecialKey::downArrow},
    {XKB_KEY_Left, NSEvent::SpecialKey::leftArrow},
    {XKB_KEY_KP_Left, NSEvent::SpecialKey::leftArrow},
    {XKB_KEY_Right, NSEvent::SpecialKey::rightArrow},
    {XKB_KEY_KP_Right, NSEvent::SpecialKey::rightArrow},
    {XKB_KEY_Insert, NSEvent::SpecialKey::insert},
    {XKB_KEY_KP_Insert, NSEvent::SpecialKey::insert},
    {XKB_KEY_Home, NSEvent::SpecialKey::home},
    {XKB_KEY_KP_Home, NSEvent::SpecialKey::home},
    {XKB_KEY_Begin, NSEvent::SpecialKey::begin},
    {XKB_KEY_KP_Begin, NSEvent::SpecialKey::begin},
    {XKB_KEY_End, NSEvent::SpecialKey::end},
    {XKB_KEY_KP_End, NSEvent::SpecialKey::end},
    {XKB_KEY_Prior, NSEvent::SpecialKey::pageUp},
    {XKB_KEY_KP_Prior, NSEvent::SpecialKey::pageUp},
    {XKB_KEY_Next, NSEvent::SpecialKey::pageDown},
    {XKB_KEY_KP_Next, NSEvent::SpecialKey::pageDown},
    {XKB_KEY_Print, NSEvent::SpecialKey::printScreen},
    {XKB_KEY_3270_PrintScreen, NSEvent::SpecialKey::printScreen},
    {XKB_KEY_Scroll_Lock, NSEvent::SpecialKey::scrollLock},
    {XKB_KEY_Pause, NSEvent::SpecialKey::pause},
    {XKB_KEY_Sys_Req, NSEvent::SpecialKey::sysReq},
    {XKB_KEY_Break, NSEvent::SpecialKey::break_},
    {XKB_KEY_hpReset, NSEvent::SpecialKey::reset},
    {XKB_KEY_Cancel, NSEvent::SpecialKey::stop},
    {XKB_KEY_XF86Stop, NSEvent::SpecialKey::stop},
    {XKB_KEY_Menu, NSEvent::SpecialKey::menu},
    {XKB_KEY_hpUser, NSEvent::SpecialKey::user},
    {XKB_KEY_hpSystem, NSEvent::SpecialKey::system},
    {XKB_KEY_Clear, NSEvent::SpecialKey::clearLine},
    {XKB_KEY_hpClearLine, NSEvent::SpecialKey::clearLine},
    {XKB_KEY_hpInsertLine, NSEvent::SpecialKey::insertLine},
    {XKB_KEY_hpDeleteLine, NSEvent::SpecialKey::deleteLine},
    {XKB_KEY_hpInsertChar, NSEvent::SpecialKey::insertCharacter},
    {XKB_KEY_hpDeleteChar, NSEvent::SpecialKey::deleteCharacter},
    {XKB_KEY_Select, NSEvent::SpecialKey::select},
    {XKB_KEY_Execute, NSEvent::SpecialKey::execute},
    {XKB_KEY_Undo, NSEvent::SpecialKey::undo},
    {XKB_KEY_Redo, NSEvent::SpecialKey::redo},
    {XKB_KEY_Find, NSEvent::SpecialKey::find},
    {XKB_KEY_Help, NSEvent::SpecialKey::help},
    {XKB_KEY_KP_F1, NSEvent::SpecialKey::f1},
    {XKB_KEY_KP_F2, NSEvent::SpecialKey::f2},
    {XKB_KEY_KP_F3, NSEvent::SpecialKey::f3},
    {XKB_KEY_KP_F4, NSEvent::SpecialKey::f4},
    {unicodeKeysym + 0x2028, NSEvent::SpecialKey::lineSeparator},
    {unicodeKeysym + 0x2029, NSEvent::SpecialKey::paragraphSeparator},
});

/// Nothing: the key types a character, is a modifier or is not known.
constexpr std::optional<NSEvent::SpecialKey> specialKeyOf(std::uint32_t keysym) {
  if (keysym >= XKB_KEY_F1 && keysym <= XKB_KEY_F35) {
    return NSEvent::SpecialKey{static_cast<std::uint32_t>(NSEvent::SpecialKey::f1) + keysym - XKB_KEY_F1};
  }
  for (const auto& row : specialKeysOfKeysyms) {
    if (row.keysym == keysym) return row.key;
  }
  return std::nullopt;
}

/// The flags that a press of a special key carries without any modifier being held.
constexpr NSEventModifierFlags flagsOf(NSEvent::SpecialKey key) {
  if (key < NSEvent::SpecialKey::upArrow || key > NSEvent::SpecialKey::modeSwitch) return 0;
  if (key <= NSEvent::SpecialKey::rightArrow) return modifierFlag::numericPad | modifierFlag::function;
  if (key == NSEvent::SpecialKey::help) return modifierFlag::help | modifierFlag::function;
  return modifierFlag::function;
}

}  // namespace norra::linux_desktop
