// Reading actions back from their JSON texts.
//
// Whoever reads may be older or newer than whoever wrote: members that a kind does not have are passed over, and
// members are found by name in any order. In everything else a text is read whole or not at all, so that no half of a
// report passes for one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "NorraDataCollector/model/Action.h"

namespace norra {

struct DecodingError {
  std::string message;
  /// The offending member; nothing where no single member is at fault.
  std::optional<std::string> member;
  bool operator==(const DecodingError&) const = default;
};

/// The action that the text holds, or what is wrong with it; nothing is decoded in part. Members that the kind does
/// not have are ignored, members are found by name, and a null is an absent member.
std::variant<Action, DecodingError> decodeAction(std::string_view text);

/// One record, whose "action" must be that of the record's own type.
template <typename Data>
std::variant<Data, DecodingError> decodeRecord(std::string_view text) {
  auto decoded = decodeAction(text);
  if (auto* error = std::get_if<DecodingError>(&decoded)) return std::move(*error);
  if (auto* data = std::get_if<Data>(&std::get<Action>(decoded))) return std::move(*data);
  return DecodingError{"The text holds an action of another kind", "action"};
}

}  // namespace norra
