#pragma once

#include <array>
#include <utility>

#include "NorraDataCollector/model/ActionFields.h"
#include "benchmarks/peers/WireFormatPeers.h"

namespace norra::benchmarks {

template <typename Value>
Value require(std::string_view member, std::optional<Value> value) {
  if (!value) throw PeerFault{std::string(member)};
  return *std::move(value);
}

inline void take(std::string_view, std::string_view text, std::string& value) { value = text; }
inline void take(std::string_view member, std::string_view text, URL& value) { value = require(member, urlFrom(text)); }
inline void take(std::string_view member, std::string_view text, CollectorOperation& value) {
  value = require(member, collectorOperationFrom(text));
}
inline void take(std::string_view member, std::string_view text, MouseButton& value) {
  value = require(member, mouseButtonFrom(text));
}
inline void take(std::string_view member, std::int64_t number, std::int32_t& value) {
  if (!std::in_range<std::int32_t>(number)) throw PeerFault{std::string(member)};
  value = static_cast<std::int32_t>(number);
}
inline void take(std::string_view member, std::int64_t number, ToggleState& value) {
  value = require(member, toggleStateFrom(number));
}

/// Members that are numbers; all others are texts.
template <typename Value>
inline constexpr bool isNumber = std::is_same_v<Value, std::int32_t> || std::is_same_v<Value, ToggleState>;

/// Reads the record of each kind from an Object, which has text(member) and number(member): nothing for an absent or
/// null member, a PeerFault for one of another type.
template <typename Object>
class RecordReader {
 public:
  explicit RecordReader(Object& object) : object_(object) {}

  Action action() {
    const auto key = require("action", codingKeysFrom(require("action", object_.text("action"))));
    return readers[static_cast<std::size_t>(key)](*this);
  }

 private:
  template <typename Value>
  auto value(std::string_view member) {
    if constexpr (isNumber<Value>) {
      return object_.number(member);
    } else {
      return object_.text(member);
    }
  }

  template <typename Value>
  void read(std::string_view member, Value& result) {
    take(member, require(member, value<Value>(member)), result);
  }

  template <typename Value>
  void read(std::string_view member, std::optional<Value>& result) {
    result.reset();
    if (const auto found = value<Value>(member)) take(member, *found, result.emplace());
  }

  template <typename Data>
  static Action record(RecordReader& reader) {
    Data data;
    forEachField<Data>([&](const auto& field) { reader.read(field.name, data.*field.member); });
    return data;
  }

  static constexpr auto readers = []<std::size_t... index>(std::index_sequence<index...>) {
    return std::array{&record<std::variant_alternative_t<index, Action>>...};
  }
  (std::make_index_sequence<std::variant_size_v<Action>>{});

  Object& object_;
};

}  // namespace norra::benchmarks
