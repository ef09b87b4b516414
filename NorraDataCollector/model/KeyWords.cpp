#include "NorraDataCollector/model/KeyWords.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace norra {
namespace {

constexpr std::string_view separator = " + ";

struct Word {
  std::string_view reported;
  std::string_view said;
};

enum Modifier : std::uint8_t { capsLock, shift, control, option, command, numericPad, help, function, modifierCount };
using Held = std::array<bool, modifierCount>;

constexpr std::array<std::string_view, modifierCount> modifierNames{"CapsLock", "Shift",      "Control", "Option",
                                                                    "Command",  "NumericPad", "Help",    "Function"};

struct SaidModifier {
  Modifier modifier;
  std::string_view said;
};

/// In the order in which they are said.
constexpr std::array saidModifiers{SaidModifier{command, "Super"}, SaidModifier{control, "Ctrl"},
                                   SaidModifier{option, "Alt"}, SaidModifier{shift, "Shift"}};

/// The others begin each of their words with a capital: "page up", "f5".
constexpr auto keyNames = std::to_array<Word>({
    {"carriage return", "Enter"},
    {"enter", "Enter"},
    {"newline", "Line Feed"},
    {"delete", "Backspace"},
    {"delete forward", "Delete"},
    {"back tab", "Tab"},
    {"up arrow", "Up"},
    {"down arrow", "Down"},
    {"left Arrow", "Left"},
    {"rightArrow", "Right"},
    {"insertLine", "Insert Line"},
    {"sys req", "SysRq"},
    {"prev", "Previous"},
    {" ", "Space"},
    {"\t", "Tab"},
    {"\x1b", "Escape"},
});

constexpr std::array arrows{"up arrow", "down arrow", "left Arrow", "rightArrow"};

std::string_view withoutModifiers(std::string_view text, Held& held) {
  for (std::size_t modifier = 0; modifier < modifierCount; ++modifier) {
    const auto name = modifierNames[modifier];
    if (!text.starts_with(name)) continue;
    const auto rest = text.substr(name.size());
    if (!rest.empty() && !rest.starts_with(separator)) continue;
    held[modifier] = true;
    text = rest.substr(std::min(rest.size(), separator.size()));
  }
  return text;
}

std::string capital(utf8proc_int32_t letter) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto length = utf8proc_encode_char(utf8proc_toupper(letter), bytes.data());
  return {bytes.begin(), bytes.begin() + length};
}

/// A letter, or the first letter of each word.
std::string withCapitals(std::string_view key) {
  std::string said;
  for (bool isFirst = true; !key.empty();) {
    utf8proc_int32_t letter = 0;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(key.data());
    const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(key.size()), &letter);
    if (length <= 0) return said.append(key);
    said += isFirst ? capital(letter) : std::string(key.substr(0, static_cast<std::size_t>(length)));
    isFirst = letter == ' ';
    key.remove_prefix(static_cast<std::size_t>(length));
  }
  return said;
}

std::string wordFor(std::string_view key) {
  const auto found = std::ranges::find(keyNames, key, &Word::reported);
  return found != keyNames.end() ? std::string(found->said) : withCapitals(key);
}

/// The arrows are reported with the flag of the keypad wherever they are.
bool isOnKeypad(std::string_view key, const Held& held) {
  return key == "enter" || (held[numericPad] && std::ranges::find(arrows, key) == arrows.end());
}

}  // namespace

std::string keyWords(std::string_view keyText) {
  Held held{};
  const auto key = withoutModifiers(keyText, held);
  if (key == "back tab") held[shift] = true;
  std::string said;
  for (const auto& [modifier, word] : saidModifiers) {
    if (held[modifier]) said.append(word).append("+");
  }
  if (key.empty() && held[numericPad]) return said + "Keypad";  // what was pressed there is not told
  if (key.empty() && !said.empty()) said.pop_back();
  if (key.empty()) return said.empty() ? std::string(keyText) : said;
  return said.append(isOnKeypad(key, held) ? "Keypad " : "").append(wordFor(key));
}

}  // namespace norra
