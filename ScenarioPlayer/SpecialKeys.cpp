#include "ScenarioPlayer/SpecialKeys.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace norra::scenario {
namespace {

using Key = NSEvent::SpecialKey;

struct NamedKey {
  std::string_view name;
  Key key;
};

constexpr std::array namedKeys{NamedKey{"backspace", Key::backspace},
                               NamedKey{"carriageReturn", Key::carriageReturn},
                               NamedKey{"newline", Key::newline},
                               NamedKey{"enter", Key::enter},
                               NamedKey{"delete", Key::delete_},
                               NamedKey{"deleteForward", Key::deleteForward},
                               NamedKey{"backTab", Key::backTab},
                               NamedKey{"tab", Key::tab},
                               NamedKey{"upArrow", Key::upArrow},
                               NamedKey{"downArrow", Key::downArrow},
                               NamedKey{"leftArrow", Key::leftArrow},
                               NamedKey{"rightArrow", Key::rightArrow},
                               NamedKey{"pageUp", Key::pageUp},
                               NamedKey{"pageDown", Key::pageDown},
                               NamedKey{"home", Key::home},
                               NamedKey{"end", Key::end},
                               NamedKey{"prev", Key::prev},
                               NamedKey{"next", Key::next},
                               NamedKey{"begin", Key::begin},
                               NamedKey{"break", Key::break_},
                               NamedKey{"clearDisplay", Key::clearDisplay},
                               NamedKey{"clearLine", Key::clearLine},
                               NamedKey{"deleteCharacter", Key::deleteCharacter},
                               NamedKey{"deleteLine", Key::deleteLine},
                               NamedKey{"execute", Key::execute},
                               NamedKey{"find", Key::find},
                               NamedKey{"formFeed", Key::formFeed},
                               NamedKey{"help", Key::help},
                               NamedKey{"insert", Key::insert},
                               NamedKey{"insertCharacter", Key::insertCharacter},
                               NamedKey{"insertLine", Key::insertLine},
                               NamedKey{"lineSeparator", Key::lineSeparator},
                               NamedKey{"menu", Key::menu},
                               NamedKey{"modeSwitch", Key::modeSwitch},
                               NamedKey{"paragraphSeparator", Key::paragraphSeparator},
                               NamedKey{"pause", Key::pause},
                               NamedKey{"print", Key::print},
                               NamedKey{"printScreen", Key::printScreen},
                               NamedKey{"redo", Key::redo},
                               NamedKey{"reset", Key::reset},
                               NamedKey{"scrollLock", Key::scrollLock},
                               NamedKey{"select", Key::select},
                               NamedKey{"stop", Key::stop},
                               NamedKey{"sysReq", Key::sysReq},
                               NamedKey{"system", Key::system},
                               NamedKey{"undo", Key::undo},
                               NamedKey{"user", Key::user}};

constexpr auto firstFunctionKey = static_cast<std::uint32_t>(Key::f1);
constexpr auto functionKeyCount = static_cast<std::uint32_t>(Key::f35) - firstFunctionKey + 1;

/// "f1" to "f35".
std::optional<Key> functionKeyNamed(std::string_view name) {
  if (name.size() < 2 || name[0] != 'f' || name[1] == '0') return std::nullopt;
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size() || number > functionKeyCount) return std::nullopt;
  return Key{firstFunctionKey + number - 1};
}

}  // namespace

std::optional<NSEvent::SpecialKey> specialKeyNamed(std::string_view name) {
  const auto found = std::ranges::find(namedKeys, name, &NamedKey::name);
  if (found != namedKeys.end()) return found->key;
  return functionKeyNamed(name);
}

}  // namespace norra::scenario
