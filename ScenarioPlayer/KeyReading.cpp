#include "ScenarioPlayer/KeyReading.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace norra::scenario {
namespace {

struct NamedModifier {
  std::string_view name;
  std::uint64_t flag;
};

constexpr std::array modifiers{
    NamedModifier{"capsLock", modifierFlag::capsLock}, NamedModifier{"shift", modifierFlag::shift},
    NamedModifier{"control", modifierFlag::control},   NamedModifier{"option", modifierFlag::option},
    NamedModifier{"command", modifierFlag::command},   NamedModifier{"numericPad", modifierFlag::numericPad},
    NamedModifier{"help", modifierFlag::help},         NamedModifier{"function", modifierFlag::function}};

std::uint64_t readModifier(const JsonCursor& cursor) {
  const auto found = std::ranges::find(modifiers, cursor.text(), &NamedModifier::name);
  if (found == modifiers.end()) cursor.fault("unknown modifier");
  return found->flag;
}

std::uint64_t readModifiers(const JsonCursor& cursor) {
  if (cursor.value().is_number()) return cursor.integer<std::uint64_t>();
  std::uint64_t flags = 0;
  for (const auto& item : cursor.items()) flags |= readModifier(item);
  return flags;
}

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

/// By its member name, such as "upArrow" or "f13"; nothing for another text.
std::optional<Key> specialKeyNamed(std::string_view name) {
  const auto found = std::ranges::find(namedKeys, name, &NamedKey::name);
  if (found != namedKeys.end()) return found->key;
  return functionKeyNamed(name);
}

Key readSpecialKey(const JsonCursor& cursor) {
  constexpr std::uint32_t lastCodePoint = 0x10FFFF;
  if (cursor.value().is_number()) {
    const auto codePoint = cursor.integer<std::uint32_t>();
    if (codePoint > lastCodePoint) cursor.fault("out of range");
    return Key{codePoint};
  }
  const auto key = specialKeyNamed(cursor.text());
  if (!key) cursor.fault("no special key has this name");
  return *key;
}

}  // namespace

std::optional<NSEvent> readKey(const JsonCursor& cursor) {
  const JsonMembers key(cursor, {"special", "characters", "modifiers", "repeat", "unreadable"});
  const NSEvent event{.isARepeat = key.optional("repeat", &JsonCursor::boolean).value_or(false),
                      .specialKey = key.optional("special", readSpecialKey),
                      .charactersIgnoringModifiers = key.optional("characters", &JsonCursor::text),
                      .modifierFlags = key.optional("modifiers", readModifiers).value_or(0)};
  const bool isUnreadable = key.optional("unreadable", &JsonCursor::boolean).value_or(false);
  return isUnreadable ? std::nullopt : std::optional(event);
}

}  // namespace norra::scenario
