#include <gtest/gtest.h>

#include <vector>

#include "NorraDataCollector/TapEventsCollector/KeyNaming.h"

namespace norra {
namespace {

TEST(KeyNaming, NamesTheFunctionKeysInOrder) {
  for (std::uint32_t number = 1; number <= 35; ++number) {
    EXPECT_EQ(toString(NSSpecialKey{0xF703 + number}), "f" + std::to_string(number));
  }
}

TEST(KeyNaming, KeepsTheIrregularNames) {
  EXPECT_EQ(toString(NSSpecialKey{0xF702}), "left Arrow");
  EXPECT_EQ(toString(NSSpecialKey{0xF703}), "rightArrow");
  EXPECT_EQ(toString(NSSpecialKey{0xF73B}), "insertLine");
  EXPECT_EQ(toString(NSSpecialKey{0x000D}), "carriage return");
  EXPECT_EQ(toString(NSSpecialKey{0x0003}), "enter");
  for (const std::uint32_t unnamed : {0U, 0x1BU, 0xF748U, 0x202AU}) {
    EXPECT_EQ(toString(NSSpecialKey{unnamed}), "unknown") << unnamed;
  }
}

TEST(KeyNaming, NamesModifiersInTheirOrder) {
  EXPECT_EQ(modifierFlagsToString(0xFF0000),
            "CapsLock + Shift + Control + Option + Command + NumericPad + Help + Function");
  EXPECT_EQ(modifierFlagsToString(0x120000), "Shift + Command");
  EXPECT_EQ(modifierFlagsToString(0x00FFFF), std::nullopt);
  EXPECT_EQ(modifierFlagsToString(0), std::nullopt);
  EXPECT_EQ(shortcutModifiers, 0xFC0000U);
}

TEST(KeyNaming, JoinsWhatThereIs) {
  EXPECT_EQ(keyText({.specialKey = {}, .charactersIgnoringModifiers = "c", .modifierFlags = modifierFlag::command}),
            "Command + c");
  EXPECT_EQ(
      keyText(
          {.specialKey = NSSpecialKey{0x19}, .charactersIgnoringModifiers = "x", .modifierFlags = modifierFlag::shift}),
      "Shift + back tab");
  EXPECT_EQ(keyText({.specialKey = NSSpecialKey{0xD}, .charactersIgnoringModifiers = {}}), "carriage return");
}

}  // namespace
}  // namespace norra
