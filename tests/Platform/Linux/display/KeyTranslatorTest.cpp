#include <gmock/gmock.h>

#include <ostream>
#include <string_view>

#include "Platform/Linux/display/KeyTranslator.h"

namespace norra::linux_desktop {
namespace {

using namespace modifierFlag;

using Key = NSEvent::SpecialKey;

constexpr Key noKey{0};

/// A press under a layout, and what it is expected to mean.
struct Press {
  std::string_view what;
  const char* layouts;
  std::uint32_t layout;
  std::vector<const char*> heldModifiers;
  const char* key;
  Key specialKey;
  std::string characters;  // empty: none
  std::uint64_t flags;

  friend std::ostream& operator<<(std::ostream& out, const Press& press) { return out << press.what; }
};

KeyContextPtr newContext() { return KeyContextPtr(xkb_context_new(XKB_CONTEXT_NO_FLAGS)); }

KeyTranslator translatorFor(const Press& press, SecureInput isSecureInput = {}) {
  const auto context = newContext();
  const xkb_rule_names names{"evdev", "pc105", press.layouts, "", ""};
  KeymapPtr keymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
  KeyboardState held;
  for (const auto* name : press.heldModifiers) {
    held.baseModifiers |= xkb_mod_mask_t{1} << xkb_keymap_mod_get_index(keymap.get(), name);
  }
  held.lockedLayout = press.layout;
  KeyTranslator translator(std::move(keymap), std::move(isSecureInput));
  translator.update(held);
  return translator;
}

xkb_keycode_t keycodeOf(const Press& press) {
  const auto context = newContext();
  const xkb_rule_names names{"evdev", "pc105", press.layouts, "", ""};
  const KeymapPtr keymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
  return xkb_keymap_key_by_name(keymap.get(), press.key);
}

class KeyTranslation : public testing::TestWithParam<Press> {};

TEST_P(KeyTranslation, NamesThePress) {
  const auto& press = GetParam();
  const auto event = translatorFor(press).translate(keycodeOf(press));
  EXPECT_EQ(event.specialKey.value_or(noKey), press.specialKey);
  EXPECT_EQ(event.charactersIgnoringModifiers.value_or(""), press.characters);
  EXPECT_EQ(event.modifierFlags, press.flags);
  EXPECT_FALSE(event.isARepeat);
}

constexpr auto shiftKey = XKB_MOD_NAME_SHIFT;
constexpr auto controlKey = XKB_MOD_NAME_CTRL;
constexpr auto altKey = XKB_MOD_NAME_ALT;
constexpr auto superKey = XKB_MOD_NAME_LOGO;
constexpr auto capsLockKey = XKB_MOD_NAME_CAPS;
constexpr auto numLockKey = XKB_MOD_NAME_NUM;
constexpr auto thirdLevel = "Mod5";

INSTANTIATE_TEST_SUITE_P(
    Presses, KeyTranslation,
    testing::Values(
        Press{"plain typing keeps its character", "us", 0, {}, "AB03", noKey, "", 0},
        Press{"Shift alone is plain typing", "us", 0, {shiftKey}, "AB03", noKey, "", shift},
        Press{"control", "us", 0, {controlKey}, "AB03", noKey, "c", control},
        Press{"control and Shift", "us", 0, {controlKey, shiftKey}, "AB03", noKey, "C", control | shift},
        Press{"control and Caps Lock", "us", 0, {controlKey, capsLockKey}, "AB03", noKey, "c", control | capsLock},
        Press{"Super is command", "us", 0, {superKey}, "AC09", noKey, "l", command},
        Press{"Alt is option", "us", 0, {altKey}, "AE01", noKey, "1", option},
        Press{"the layout decides", "de", 0, {controlKey}, "AD06", noKey, "z", control},
        Press{"a character beyond ASCII", "de", 0, {controlKey}, "AC10", noKey, "ö", control},
        Press{"the first of two layouts", "us,ru", 0, {controlKey}, "AB03", noKey, "c", control},
        Press{"the second of two layouts", "us,ru", 1, {controlKey}, "AB03", noKey, "с", control},
        Press{"the third level is ignored", "de", 0, {controlKey, thirdLevel}, "AD01", noKey, "q", control},
        Press{"the third level is typing", "de", 0, {thirdLevel}, "AD01", noKey, "", 0},
        Press{"a dead key", "de", 0, {controlKey}, "TLDE", noKey, "", control},
        Press{"a modifier", "us", 0, {controlKey}, "LFSH", noKey, "", control},
        Press{"Escape is a character", "us", 0, {controlKey}, "ESC", noKey, "\x1B", control},
        Press{"Return", "us", 0, {}, "RTRN", Key::carriageReturn, "", 0},
        Press{"Enter of the keypad", "us", 0, {}, "KPEN", Key::enter, "", numericPad},
        Press{"delete backwards", "us", 0, {}, "BKSP", Key::delete_, "", 0},
        Press{"delete forward", "us", 0, {}, "DELE", Key::deleteForward, "", function},
        Press{"Tab", "us", 0, {}, "TAB", Key::tab, "", 0},
        Press{"Shift and Tab", "us", 0, {shiftKey}, "TAB", Key::backTab, "", shift},
        Press{"an arrow", "us", 0, {}, "UP", Key::upArrow, "", numericPad | function},
        Press{"Home", "us", 0, {}, "HOME", Key::home, "", function},
        Press{"a function key", "us", 0, {}, "FK05", Key::f5, "", function},
        Press{"Alt and F4", "us", 0, {altKey}, "FK04", Key::f4, "", option | function},
        Press{"a terminal's key", "us", 0, {controlKey, altKey}, "FK01", Key::f1, "", control | option | function},
        Press{"Print Screen", "us", 0, {}, "PRSC", Key::printScreen, "", function},
        Press{"Alt and Print Screen", "us", 0, {altKey}, "PRSC", Key::sysReq, "", option | function},
        Press{"Pause", "us", 0, {}, "PAUS", Key::pause, "", function},
        Press{"control and Pause", "us", 0, {controlKey}, "PAUS", Key::break_, "", control | function},
        Press{"the menu key", "us", 0, {}, "COMP", Key::menu, "", function},
        Press{"Help", "us", 0, {}, "HELP", Key::help, "", modifierFlag::help | function},
        Press{"a digit of the keypad", "us", 0, {numLockKey}, "KP5", noKey, "5", numericPad},
        Press{"the keypad without Num Lock", "us", 0, {}, "KP7", Key::home, "", numericPad | function},
        Press{"an operator of the keypad", "us", 0, {}, "KPAD", noKey, "+", numericPad}));

TEST(KeyTranslator, TellsNoDigitOfTheKeypadWhileASecretIsTyped) {
  const Press press{"", "us", 0, {numLockKey}, "KP5", noKey, "", 0};
  const auto event = translatorFor(press, [] { return true; }).translate(keycodeOf(press));
  EXPECT_EQ(event.charactersIgnoringModifiers, std::nullopt);
}

TEST(KeyTranslator, AsksForSecrecyOnlyWhereACharacterOfTheKeypadIsTyped) {
  int questions = 0;
  const auto count = [&] { return ++questions > 0; };
  for (const auto* key : {"AC01", "RTRN", "UP", "KPEN"}) {
    const Press press{"", "us", 0, {}, key, noKey, "", 0};
    translatorFor(press, count).translate(keycodeOf(press));
  }
  EXPECT_EQ(questions, 0);
}

}  // namespace
}  // namespace norra::linux_desktop
