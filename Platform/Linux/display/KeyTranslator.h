// What a key means under the user's own keyboard layout.
#pragma once

#include <xkbcommon/xkbcommon.h>

#include <functional>
#include <memory>

#include "Platform/EventTap.h"

namespace norra::linux_desktop {

struct KeyContextUnref {
  void operator()(xkb_context* context) const noexcept { xkb_context_unref(context); }
};
using KeyContextPtr = std::unique_ptr<xkb_context, KeyContextUnref>;

struct KeymapUnref {
  void operator()(xkb_keymap* keymap) const noexcept { xkb_keymap_unref(keymap); }
};
using KeymapPtr = std::unique_ptr<xkb_keymap, KeymapUnref>;

struct KeyStateUnref {
  void operator()(xkb_state* state) const noexcept { xkb_state_unref(state); }
};
using KeyStatePtr = std::unique_ptr<xkb_state, KeyStateUnref>;

/// Says whether a secret is being typed now. Asked only when a key of the numeric pad types a character.
using SecureInput = std::function<bool()>;

/// The modifiers and the layout that the X server applies, each as what is held, latched and locked.
struct KeyboardState {
  xkb_mod_mask_t baseModifiers = 0;
  xkb_mod_mask_t latchedModifiers = 0;
  xkb_mod_mask_t lockedModifiers = 0;
  xkb_layout_index_t baseLayout = 0;
  xkb_layout_index_t latchedLayout = 0;
  xkb_layout_index_t lockedLayout = 0;
};

/// One layout with its present state. One thread at a time.
class KeyTranslator {
 public:
  /// `keymap` not null. `isSecureInput` empty: never.
  explicit KeyTranslator(KeymapPtr keymap, SecureInput isSecureInput = {});

  void update(const KeyboardState& state);

  /// The press of a key. Characters of plain typing, without a modifier that makes a shortcut, are left out: nobody
  /// needs them, and they may be a secret.
  NSEvent translate(xkb_keycode_t key);

 private:
  std::uint64_t heldModifierFlags() const;
  bool isHeld(const char* modifier) const;
  bool isOnKeypad(xkb_keycode_t key) const;
  void ignoreModifiersExceptShift();
  std::optional<NSEvent::SpecialKey> specialKeyAt(xkb_keycode_t key) const;
  std::optional<std::string> charactersAt(xkb_keycode_t key) const;
  bool mayTellCharacters(std::uint64_t flags) const;

  KeymapPtr keymap_;
  KeyStatePtr state_;
  KeyStatePtr stateWithoutModifiers_;  // Shift and Num Lock excepted
  SecureInput isSecureInput_;
};

}  // namespace norra::linux_desktop
