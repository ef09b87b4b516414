#include "Platform/Linux/display/KeyTranslator.h"

#include <array>
#include <string_view>
#include <utility>

#include "Platform/Linux/display/SpecialKeys.h"

namespace norra::linux_desktop {
namespace {

struct ModifierName {
  const char* name;
  std::uint64_t flag;
};

constexpr std::array modifierNames{
    ModifierName{XKB_MOD_NAME_CAPS, modifierFlag::capsLock}, ModifierName{XKB_MOD_NAME_SHIFT, modifierFlag::shift},
    ModifierName{XKB_MOD_NAME_CTRL, modifierFlag::control},  ModifierName{XKB_MOD_NAME_ALT, modifierFlag::option},
    ModifierName{XKB_MOD_NAME_LOGO, modifierFlag::command},
};

constexpr auto shortcutFlags = modifierFlag::control | modifierFlag::option | modifierFlag::command;

bool isKeypadKeysym(xkb_keysym_t keysym) { return keysym >= XKB_KEY_KP_Space && keysym <= XKB_KEY_KP_Equal; }

}  // namespace

KeyTranslator::KeyTranslator(KeymapPtr keymap, SecureInput isSecureInput)
    : keymap_(std::move(keymap)),
      state_(xkb_state_new(keymap_.get())),
      stateWithoutModifiers_(xkb_state_new(keymap_.get())),
      isSecureInput_(std::move(isSecureInput)) {}

void KeyTranslator::update(const KeyboardState& state) {
  xkb_state_update_mask(state_.get(), state.baseModifiers, state.latchedModifiers, state.lockedModifiers,
                        state.baseLayout, state.latchedLayout, state.lockedLayout);
}

NSEvent KeyTranslator::translate(xkb_keycode_t key) {
  ignoreModifiersExceptShift();
  NSEvent event;
  event.specialKey = specialKeyAt(key);
  event.modifierFlags = heldModifierFlags();
  if (event.specialKey) event.modifierFlags |= flagsOf(*event.specialKey);
  if (isOnKeypad(key)) event.modifierFlags |= modifierFlag::numericPad;
  if (!event.specialKey && mayTellCharacters(event.modifierFlags)) {
    event.charactersIgnoringModifiers = charactersAt(key);
  }
  return event;
}

bool KeyTranslator::isHeld(const char* modifier) const {
  return xkb_state_mod_name_is_active(state_.get(), modifier, XKB_STATE_MODS_EFFECTIVE) > 0;
}

std::uint64_t KeyTranslator::heldModifierFlags() const {
  std::uint64_t flags = 0;
  for (const auto& [name, flag] : modifierNames) {
    if (isHeld(name)) flags |= flag;
  }
  return flags;
}

bool KeyTranslator::isOnKeypad(xkb_keycode_t key) const {
  const auto* name = xkb_keymap_key_get_name(keymap_.get(), key);
  return (name != nullptr && std::string_view(name).starts_with("KP")) ||
         isKeypadKeysym(xkb_state_key_get_one_sym(stateWithoutModifiers_.get(), key));
}

// Num Lock decides what a key of the numeric pad is, as Shift does for the others.
void KeyTranslator::ignoreModifiersExceptShift() {
  xkb_mod_mask_t kept = 0;
  for (const auto* name : {XKB_MOD_NAME_SHIFT, XKB_MOD_NAME_NUM}) {
    const auto index = xkb_keymap_mod_get_index(keymap_.get(), name);
    if (index != XKB_MOD_INVALID && isHeld(name)) kept |= xkb_mod_mask_t{1} << index;
  }
  const auto layout = xkb_state_serialize_layout(state_.get(), XKB_STATE_LAYOUT_EFFECTIVE);
  xkb_state_update_mask(stateWithoutModifiers_.get(), kept, 0, 0, 0, 0, layout);
}

// A modifier may make another special key of a key (Alt and Print Screen), or hide it (Control, Alt and F1).
std::optional<NSEvent::SpecialKey> KeyTranslator::specialKeyAt(xkb_keycode_t key) const {
  const auto withModifiers = specialKeyOf(xkb_state_key_get_one_sym(state_.get(), key));
  if (withModifiers) return withModifiers;
  return specialKeyOf(xkb_state_key_get_one_sym(stateWithoutModifiers_.get(), key));
}

std::optional<std::string> KeyTranslator::charactersAt(xkb_keycode_t key) const {
  std::array<char, 16> text{};
  const auto length = xkb_state_key_get_utf8(stateWithoutModifiers_.get(), key, text.data(), text.size());
  if (length <= 0 || static_cast<std::size_t>(length) >= text.size()) return std::nullopt;
  return std::string(text.data());
}

bool KeyTranslator::mayTellCharacters(std::uint64_t flags) const {
  if ((flags & shortcutFlags) != 0) return true;
  return (flags & modifierFlag::numericPad) != 0 && !(isSecureInput_ && isSecureInput_());
}

}  // namespace norra::linux_desktop
