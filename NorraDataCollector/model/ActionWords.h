// Actions in readable words: what the page and the lines for a person say of each kind. Nothing is told here that is
// not in the action, and of a password nothing but that it changed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NorraDataCollector/model/Action.h"

namespace norra {

/// A sentence in up to three pieces, such as "Changed text field", "Subject" and "Quarterly figures".
struct ActionWords {
  std::string deed;
  /// What it was done to; empty when that has no name, nothing when the deed says it all.
  std::optional<std::string> object = std::nullopt;
  /// The new value or the circumstances; nothing when there is none to tell, as for every password.
  std::optional<std::string> outcome = std::nullopt;
  bool operator==(const ActionWords&) const = default;
};

ActionWords wordsFor(const Action& action);

/// What kinds have in common.
enum class KindGroup : std::uint8_t { click, value, secret, selection, key, application, collection, other };

struct KindWords {
  /// "Link click" for ClickHyperLink.
  std::string_view label;
  KindGroup group = KindGroup::other;
};

KindWords wordsFor(CodingKeys kind);
std::string_view nameOf(KindGroup group);

}  // namespace norra
