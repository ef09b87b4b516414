#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "NorraDataCollector/model/KeyWords.h"

namespace norra {
namespace {

const std::vector<std::pair<std::string_view, std::string_view>> keysAsReportedAndSaid{
    {"Control + f", "Ctrl+F"},
    {"Option + y", "Alt+Y"},
    {"Command + l", "Super+L"},
    {"Control + \u00E4", "Ctrl+\u00C4"},
    {"Shift + Control + T", "Ctrl+Shift+T"},
    {"CapsLock + Control + f", "Ctrl+F"},
    {"Shift + Control + Option + Command + x", "Super+Ctrl+Alt+Shift+X"},
    {"Control + +", "Ctrl++"},
    {"Control +  ", "Ctrl+Space"},
    {"Control + \x1B", "Ctrl+Escape"},
    {"Option + Function + f4", "Alt+F4"},
    {"Function + f12", "F12"},
    {"carriage return", "Enter"},
    {"Shift + carriage return", "Shift+Enter"},
    {"tab", "Tab"},
    {"Shift + back tab", "Shift+Tab"},
    {"Shift + Control + back tab", "Ctrl+Shift+Tab"},
    {"delete", "Backspace"},
    {"Control + Function + delete forward", "Ctrl+Delete"},
    {"Control + Option + Function + delete forward", "Ctrl+Alt+Delete"},
    {"NumericPad + Function + down arrow", "Down"},
    {"Option + NumericPad + Function + left Arrow", "Alt+Left"},
    {"Shift + NumericPad + Function + rightArrow", "Shift+Right"},
    {"Control + Function + home", "Ctrl+Home"},
    {"Function + page up", "Page Up"},
    {"Help + Function + help", "Help"},
    {"Function + insertLine", "Insert Line"},
    {"Option + Function + sys req", "Alt+SysRq"},
    {"enter", "Keypad Enter"},
    {"NumericPad + enter", "Keypad Enter"},
    {"NumericPad + 5", "Keypad 5"},
    {"NumericPad + +", "Keypad +"},
    {"Control + NumericPad + -", "Ctrl+Keypad -"},
    {"NumericPad + Function + home", "Keypad Home"},
    {"NumericPad", "Keypad"},
    {"Control", "Ctrl"},
    {"Controlled", "Controlled"},
    {"Function", "Function"},
    {"unknown", "Unknown"},
    {"\xFF", "\xFF"},
    {"", ""},
};

TEST(KeyWords, AreWhatPeopleSay) {
  for (const auto& [reported, said] : keysAsReportedAndSaid) EXPECT_EQ(keyWords(reported), said) << reported;
}

}  // namespace
}  // namespace norra
