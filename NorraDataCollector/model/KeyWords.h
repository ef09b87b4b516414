// Keys as people of a Linux desktop say them.
#pragma once

#include <string>
#include <string_view>

namespace norra {

/// What a person would say of the key text of a report: "Ctrl+F" for "Control + f", "Shift+Tab" for "Shift + back tab",
/// "Down" for "NumericPad + Function + down arrow", "Keypad 5" for "NumericPad + 5". Caps Lock is left out. A text that
/// is not of this kind is given as it is.
std::string keyWords(std::string_view keyText);

}  // namespace norra
