#include "ScenarioPlayer/SpecialKeys.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace norra::scenario {
namespace {

struct NamedKey {
  std::string_view name;
  std::uint32_t codePoint;
};

constexpr std::array namedKeys{NamedKey{"backspace", 0x0008},
                               NamedKey{"carriageReturn", 0x000D},
                               NamedKey{"newline", 0x000A},
                               NamedKey{"enter", 0x0003},
                               NamedKey{"delete", 0x007F},
                               NamedKey{"deleteForward", 0xF728},
                               NamedKey{"backTab", 0x0019},
                               NamedKey{"tab", 0x0009},
                               NamedKey{"upArrow", 0xF700},
                               NamedKey{"downArrow", 0xF701},
                               NamedKey{"leftArrow", 0xF702},
                               NamedKey{"rightArrow", 0xF703},
                               NamedKey{"pageUp", 0xF72C},
                               NamedKey{"pageDown", 0xF72D},
                               NamedKey{"home", 0xF729},
                               NamedKey{"end", 0xF72B},
                               NamedKey{"prev", 0xF73F},
                               NamedKey{"next", 0xF740},
                               NamedKey{"begin", 0xF72A},
                               NamedKey{"break", 0xF732},
                               NamedKey{"clearDisplay", 0xF73A},
                               NamedKey{"clearLine", 0xF739},
                               NamedKey{"deleteCharacter", 0xF73E},
                               NamedKey{"deleteLine", 0xF73C},
                               NamedKey{"execute", 0xF742},
                               NamedKey{"find", 0xF745},
                               NamedKey{"formFeed", 0x000C},
                               NamedKey{"help", 0xF746},
                               NamedKey{"insert", 0xF727},
                               NamedKey{"insertCharacter", 0xF73D},
                               NamedKey{"insertLine", 0xF73B},
                               NamedKey{"lineSeparator", 0x2028},
                               NamedKey{"menu", 0xF735},
                               NamedKey{"modeSwitch", 0xF747},
                               NamedKey{"paragraphSeparator", 0x2029},
                               NamedKey{"pause", 0xF730},
                               NamedKey{"print", 0xF738},
                               NamedKey{"printScreen", 0xF72E},
                               NamedKey{"redo", 0xF744},
                               NamedKey{"reset", 0xF733},
                               NamedKey{"scrollLock", 0xF72F},
                               NamedKey{"select", 0xF741},
                               NamedKey{"stop", 0xF734},
                               NamedKey{"sysReq", 0xF731},
                               NamedKey{"system", 0xF737},
                               NamedKey{"undo", 0xF743},
                               NamedKey{"user", 0xF736}};

constexpr std::uint32_t firstFunctionKey = 0xF704;
constexpr std::uint32_t functionKeyCount = 35;

/// "f1" to "f35".
std::optional<NSSpecialKey> functionKeyNamed(std::string_view name) {
  if (name.size() < 2 || name[0] != 'f' || name[1] == '0') return std::nullopt;
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size() || number > functionKeyCount) return std::nullopt;
  return NSSpecialKey{firstFunctionKey + number - 1};
}

}  // namespace

std::optional<NSSpecialKey> specialKeyNamed(std::string_view name) {
  const auto found = std::ranges::find(namedKeys, name, &NamedKey::name);
  if (found != namedKeys.end()) return NSSpecialKey{found->codePoint};
  return functionKeyNamed(name);
}

}  // namespace norra::scenario
