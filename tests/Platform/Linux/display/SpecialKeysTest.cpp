#include <gmock/gmock.h>

#include <set>

#include "Platform/Linux/display/SpecialKeys.h"

namespace norra::linux_desktop {
namespace {

using CodePoints = std::set<std::uint32_t>;

CodePoints allSpecialKeys() {
  CodePoints all{0x0003, 0x0008, 0x0009, 0x000A, 0x000C, 0x000D, 0x0019, 0x007F, 0x2028, 0x2029};
  for (std::uint32_t codePoint = 0xF700; codePoint <= 0xF747; ++codePoint) all.insert(codePoint);
  return all;
}

CodePoints reachedSpecialKeys() {
  CodePoints reached;
  for (std::uint32_t keysym = 0; keysym <= 0xFFFF; ++keysym) {
    if (const auto key = specialKeyOf(keysym)) reached.insert(static_cast<std::uint32_t>(*key));
  }
  for (const auto& row : specialKeysOfKeysyms) reached.insert(static_cast<std::uint32_t>(row.key));
  return reached;
}

TEST(SpecialKeys, AreReachedFromSomeKeysymButForThoseThatXHasNoKeyFor) {
  constexpr std::uint32_t backspace = 0x0008, formFeed = 0x000C, previous = 0xF73F, next = 0xF740;
  constexpr std::uint32_t print = 0xF738, clearDisplay = 0xF73A, modeSwitch = 0xF747;
  auto expected = allSpecialKeys();
  for (const auto absent : {backspace, formFeed, previous, next, print, clearDisplay, modeSwitch}) {
    EXPECT_EQ(expected.erase(absent), 1) << absent;
  }
  EXPECT_EQ(reachedSpecialKeys(), expected);
}

TEST(SpecialKeys, HaveOneMeaningForEachKeysym) {
  std::set<std::uint32_t> keysyms;
  for (const auto& row : specialKeysOfKeysyms) EXPECT_TRUE(keysyms.insert(row.keysym).second) << row.keysym;
}

TEST(SpecialKeys, NumberTheFunctionKeysInOrder) {
  EXPECT_EQ(specialKeyOf(XKB_KEY_F1), NSEvent::SpecialKey{0xF704});
  EXPECT_EQ(specialKeyOf(XKB_KEY_F12), NSEvent::SpecialKey{0xF70F});
  EXPECT_EQ(specialKeyOf(XKB_KEY_F35), NSEvent::SpecialKey{0xF726});
}

TEST(SpecialKeys, DoNotCoverCharactersAndModifiers) {
  for (const auto keysym :
       {XKB_KEY_a, XKB_KEY_space, XKB_KEY_Escape, XKB_KEY_Shift_L, XKB_KEY_Super_L, XKB_KEY_Caps_Lock, XKB_KEY_Num_Lock,
        XKB_KEY_Mode_switch, XKB_KEY_dead_acute, XKB_KEY_KP_5, XKB_KEY_NoSymbol}) {
    EXPECT_EQ(specialKeyOf(keysym), std::nullopt) << keysym;
  }
}

TEST(SpecialKeys, CarryTheFlagsOfTheirPlaceOnTheKeyboard) {
  using namespace modifierFlag;
  EXPECT_EQ(flagsOf(NSEvent::SpecialKey{0xF700}), numericPad | function);
  EXPECT_EQ(flagsOf(NSEvent::SpecialKey{0xF703}), numericPad | function);
  EXPECT_EQ(flagsOf(NSEvent::SpecialKey{0xF704}), function);
  EXPECT_EQ(flagsOf(NSEvent::SpecialKey{0xF746}), modifierFlag::help | function);
  for (const std::uint32_t plain : {0x03, 0x09, 0x0D, 0x19, 0x7F, 0x2028})
    EXPECT_EQ(flagsOf(NSEvent::SpecialKey{plain}), 0);
}

}  // namespace
}  // namespace norra::linux_desktop
