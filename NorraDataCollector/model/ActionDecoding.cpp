#include "NorraDataCollector/model/ActionDecoding.h"

#include <array>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "NorraDataCollector/model/ActionFields.h"

namespace norra {
namespace {

using nlohmann::json;

/// Thrown and caught within this file only.
struct Failure {
  DecodingError error;
};

[[noreturn]] void fail(std::string_view member, std::string_view problem) {
  throw Failure{{"Member \"" + std::string(member) + "\" " + std::string(problem), std::string(member)}};
}

const std::string& stringOf(std::string_view member, const json& value) {
  if (!value.is_string()) fail(member, "must be a string");
  return value.get_ref<const std::string&>();
}

template <typename Value>
Value required(std::string_view member, std::optional<Value> value, std::string_view problem) {
  if (!value) fail(member, problem);
  return *std::move(value);
}

void read(std::string_view member, const json& value, std::string& text) { text = stringOf(member, value); }

void read(std::string_view member, const json& value, URL& url) {
  url = required(member, urlFrom(stringOf(member, value)), "must be a valid URL");
}

void read(std::string_view member, const json& value, CollectorOperation& operation) {
  operation = required(member, collectorOperationFrom(stringOf(member, value)), "has an unknown value");
}

void read(std::string_view member, const json& value, MouseButton& button) {
  button = required(member, mouseButtonFrom(stringOf(member, value)), "has an unknown value");
}

void read(std::string_view member, const json& value, std::int32_t& number) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (!value.is_number_integer()) fail(member, "must be an integer");
  const bool isTooLarge = value.is_number_unsigned() && value.get<std::uint64_t>() > std::uint64_t{Limits::max()};
  if (isTooLarge || value.get<std::int64_t>() < Limits::min()) fail(member, "must fit in 32 bits");
  number = value.get<std::int32_t>();
}

void read(std::string_view member, const json& value, ToggleState& state) {
  std::int32_t number = 0;
  read(member, value, number);
  state = required(member, toggleStateFrom(number), "has an unknown value");
}

const json* find(const json& object, std::string_view member) {
  const auto found = object.find(member);
  return found == object.end() || found->is_null() ? nullptr : &*found;
}

const json& requiredMember(const json& object, std::string_view member) {
  const auto* value = find(object, member);
  if (value == nullptr) fail(member, "is missing");
  return *value;
}

template <typename Value>
void readMember(const json& object, std::string_view name, Value& value) {
  read(name, requiredMember(object, name), value);
}

template <typename Value>
void readMember(const json& object, std::string_view name, std::optional<Value>& value) {
  const auto* found = find(object, name);
  if (found == nullptr) return value.reset();
  Value present{};
  read(name, *found, present);
  value = std::move(present);
}

template <typename Data>
Action readRecord(const json& object) {
  Data data;
  forEachField<Data>([&](const auto& field) { readMember(object, field.name, data.*field.member); });
  return data;
}

template <>
Action readRecord<std::monostate>(const json&) {
  return {};
}

/// One reader for each alternative of Action, by its index.
constexpr auto recordReaders = []<std::size_t... index>(std::index_sequence<index...>) {
  return std::array{&readRecord<std::variant_alternative_t<index, Action>>...};
}
(std::make_index_sequence<std::variant_size_v<Action>>{});

Action readAction(const json& object) {
  const auto& text = stringOf("action", requiredMember(object, "action"));
  const auto key = required("action", codingKeysFrom(text), "has an unknown value");
  return recordReaders[static_cast<std::size_t>(key)](object);
}

}  // namespace

std::variant<Action, DecodingError> decodeAction(std::string_view text) {
  const auto value = json::parse(text, nullptr, false);
  if (value.is_discarded()) return DecodingError{"The text is not JSON", std::nullopt};
  if (!value.is_object()) return DecodingError{"The text is not a JSON object", std::nullopt};
  try {
    return readAction(value);
  } catch (const Failure& failure) {
    return failure.error;
  }
}

}  // namespace norra
