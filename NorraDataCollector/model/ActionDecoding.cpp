#include "NorraDataCollector/model/ActionDecoding.h"

#include <array>
#include <utility>

#include "NorraDataCollector/model/ActionFields.h"
#include "NorraDataCollector/model/JSONObject.h"

namespace norra {
namespace {

/// Thrown and caught within this file only.
struct Failure {
  DecodingError error;
};

[[noreturn]] void fail(std::string_view member, std::string_view problem) {
  throw Failure{{"Member \"" + std::string(member) + "\" " + std::string(problem), std::string(member)}};
}

const std::string& stringOf(std::string_view member, const JSONValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) fail(member, "must be a string");
  return *text;
}

template <typename Value>
Value required(std::string_view member, std::optional<Value> value, std::string_view problem) {
  if (!value) fail(member, problem);
  return *std::move(value);
}

void read(std::string_view member, const JSONValue& value, std::string& text) { text = stringOf(member, value); }

void read(std::string_view member, const JSONValue& value, URL& url) {
  url = required(member, urlFrom(stringOf(member, value)), "must be a valid URL");
}

void read(std::string_view member, const JSONValue& value, CollectorOperation& operation) {
  operation = required(member, collectorOperationFrom(stringOf(member, value)), "has an unknown value");
}

void read(std::string_view member, const JSONValue& value, MouseButton& button) {
  button = required(member, mouseButtonFrom(stringOf(member, value)), "has an unknown value");
}

void read(std::string_view member, const JSONValue& value, std::int32_t& number) {
  const auto* integer = std::get_if<JSONInteger>(&value);
  if (integer == nullptr) fail(member, "must be an integer");
  if (!std::in_range<std::int32_t>(*integer)) fail(member, "must fit in 32 bits");
  number = static_cast<std::int32_t>(*integer);
}

void read(std::string_view member, const JSONValue& value, ToggleState& state) {
  std::int32_t number = 0;
  read(member, value, number);
  state = required(member, toggleStateFrom(number), "has an unknown value");
}

const JSONValue& requiredMember(const JSONObject& object, std::string_view member) {
  const auto* value = object.find(member);
  if (value == nullptr) fail(member, "is missing");
  return *value;
}

template <typename Value>
void readMember(const JSONObject& object, std::string_view name, Value& value) {
  read(name, requiredMember(object, name), value);
}

template <typename Value>
void readMember(const JSONObject& object, std::string_view name, std::optional<Value>& value) {
  const auto* found = object.find(name);
  if (found == nullptr) return value.reset();
  Value present{};
  read(name, *found, present);
  value = std::move(present);
}

template <typename Data>
Action readRecord(const JSONObject& object) {
  Data data;
  forEachField<Data>([&](const auto& field) { readMember(object, field.name, data.*field.member); });
  return data;
}

/// One reader for each alternative of Action, by its index.
constexpr auto recordReaders = []<std::size_t... index>(std::index_sequence<index...>) {
  return std::array{&readRecord<std::variant_alternative_t<index, Action>>...};
}
(std::make_index_sequence<std::variant_size_v<Action>>{});

Action readAction(const JSONObject& object) {
  const auto& text = stringOf("action", requiredMember(object, "action"));
  const auto key = required("action", codingKeysFrom(text), "has an unknown value");
  return recordReaders[static_cast<std::size_t>(key)](object);
}

DecodingError decodingError(JSONObject::Fault fault) {
  if (fault == JSONObject::Fault::notJSON) return {"The text is not JSON", std::nullopt};
  return {"The text is not a JSON object", std::nullopt};
}

}  // namespace

std::variant<Action, DecodingError> decodeAction(std::string_view text) {
  const auto object = JSONObject::read(text);
  if (const auto* fault = std::get_if<JSONObject::Fault>(&object)) return decodingError(*fault);
  try {
    return readAction(std::get<JSONObject>(object));
  } catch (const Failure& failure) {
    return failure.error;
  }
}

}  // namespace norra
