#include "ScenarioPlayer/KeyReading.h"

#include <algorithm>
#include <array>

#include "ScenarioPlayer/SpecialKeys.h"

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

NSEvent::SpecialKey readSpecialKey(const JsonCursor& cursor) {
  constexpr std::uint32_t lastCodePoint = 0x10FFFF;
  if (cursor.value().is_number()) {
    const auto codePoint = cursor.integer<std::uint32_t>();
    if (codePoint > lastCodePoint) cursor.fault("out of range");
    return NSEvent::SpecialKey{codePoint};
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
