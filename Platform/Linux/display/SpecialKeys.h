// Which keys of X are special keys: their keysyms, and the code points that the core knows them by.
#pragma once

#include <xkbcommon/xkbcommon-keysyms.h>

#include <array>
#include <optional>

#include "Platform/EventTap.h"

namespace norra::linux_desktop {

struct SpecialKeyOfKeysym {
  std::uint32_t keysym = 0;
  std::uint32_t codePoint = 0;
};

namespace specialKey {
inline constexpr NSSpecialKey upArrow{0xF700};
inline constexpr NSSpecialKey rightArrow{0xF703};
inline constexpr NSSpecialKey f1{0xF704};
inline constexpr NSSpecialKey help{0xF746};
inline constexpr NSSpecialKey modeSwitch{0xF747};
}  // namespace specialKey

/// The keysym of a code point that has no keysym of its own is this much larger.
inline constexpr std::uint32_t unicodeKeysym = 0x1000000;

/// But for F1 to F35, whose keysyms are as consecutive as their code points. The key with the label Print Screen has
/// the keysym Print; the key that deletes backwards has the code point 0x7F; Clear and Cancel are what later keyboards
/// name clear line and stop. Escape is a character.
inline constexpr auto specialKeysOfKeysyms = std::to_array<SpecialKeyOfKeysym>({
    {XKB_KEY_Return, 0x000D},
    {XKB_KEY_KP_Enter, 0x0003},
    {XKB_KEY_ISO_Enter, 0x0003},
    {XKB_KEY_Linefeed, 0x000A},
    {XKB_KEY_BackSpace, 0x007F},
    {XKB_KEY_Delete, 0xF728},
    {XKB_KEY_KP_Delete, 0xF728},
    {XKB_KEY_Tab, 0x0009},
    {XKB_KEY_KP_Tab, 0x0009},
    {XKB_KEY_ISO_Left_Tab, 0x0019},
    {XKB_KEY_hpBackTab, 0x0019},
    {XKB_KEY_3270_BackTab, 0x0019},
    {XKB_KEY_Up, 0xF700},
    {XKB_KEY_KP_Up, 0xF700},
    {XKB_KEY_Down, 0xF701},
    {XKB_KEY_KP_Down, 0xF701},
    {XKB_KEY_Left, 0xF702},
    {XKB_KEY_KP_Left, 0xF702},
    {XKB_KEY_Right, 0xF703},
    {XKB_KEY_KP_Right, 0xF703},
    {XKB_KEY_Insert, 0xF727},
    {XKB_KEY_KP_Insert, 0xF727},
    {XKB_KEY_Home, 0xF729},
    {XKB_KEY_KP_Home, 0xF729},
    {XKB_KEY_Begin, 0xF72A},
    {XKB_KEY_KP_Begin, 0xF72A},
    {XKB_KEY_End, 0xF72B},
    {XKB_KEY_KP_End, 0xF72B},
    {XKB_KEY_Prior, 0xF72C},
    {XKB_KEY_KP_Prior, 0xF72C},
    {XKB_KEY_Next, 0xF72D},
    {XKB_KEY_KP_Next, 0xF72D},
    {XKB_KEY_Print, 0xF72E},
    {XKB_KEY_3270_PrintScreen, 0xF72E},
    {XKB_KEY_Scroll_Lock, 0xF72F},
    {XKB_KEY_Pause, 0xF730},
    {XKB_KEY_Sys_Req, 0xF731},
    {XKB_KEY_Break, 0xF732},
    {XKB_KEY_hpReset, 0xF733},
    {XKB_KEY_Cancel, 0xF734},
    {XKB_KEY_XF86Stop, 0xF734},
    {XKB_KEY_Menu, 0xF735},
    {XKB_KEY_hpUser, 0xF736},
    {XKB_KEY_hpSystem, 0xF737},
    {XKB_KEY_Clear, 0xF739},
    {XKB_KEY_hpClearLine, 0xF739},
    {XKB_KEY_hpInsertLine, 0xF73B},
    {XKB_KEY_hpDeleteLine, 0xF73C},
    {XKB_KEY_hpInsertChar, 0xF73D},
    {XKB_KEY_hpDeleteChar, 0xF73E},
    {XKB_KEY_Select, 0xF741},
    {XKB_KEY_Execute, 0xF742},
    {XKB_KEY_Undo, 0xF743},
    {XKB_KEY_Redo, 0xF744},
    {XKB_KEY_Find, 0xF745},
    {XKB_KEY_Help, 0xF746},
    {XKB_KEY_KP_F1, 0xF704},
    {XKB_KEY_KP_F2, 0xF705},
    {XKB_KEY_KP_F3, 0xF706},
    {XKB_KEY_KP_F4, 0xF707},
    {unicodeKeysym + 0x2028, 0x2028},
    {unicodeKeysym + 0x2029, 0x2029},
});

/// Nothing: the key types a character, is a modifier or is not known.
constexpr std::optional<NSSpecialKey> specialKeyOf(std::uint32_t keysym) {
  if (keysym >= XKB_KEY_F1 && keysym <= XKB_KEY_F35) {
    return NSSpecialKey{static_cast<std::uint32_t>(specialKey::f1) + keysym - XKB_KEY_F1};
  }
  for (const auto& row : specialKeysOfKeysyms) {
    if (row.keysym == keysym) return NSSpecialKey{row.codePoint};
  }
  return std::nullopt;
}

/// The flags that a press of a special key carries without any modifier being held.
constexpr std::uint64_t flagsOf(NSSpecialKey key) {
  if (key < specialKey::upArrow || key > specialKey::modeSwitch) return 0;
  if (key <= specialKey::rightArrow) return modifierFlag::numericPad | modifierFlag::function;
  if (key == specialKey::help) return modifierFlag::help | modifierFlag::function;
  return modifierFlag::function;
}

}  // namespace norra::linux_desktop
