// Typed reading of a JSON text that knows where it is, so that every fault can name its place.
//
// Whoever writes a scenario by hand makes mistakes, and a file that is half understood would play another story than
// the one that was meant. So every key must be known and every value of its type, and the first fault ends the reading.
#pragma once

#include <functional>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norra::scenario {

/// What is wrong with a file, and where. Thrown while a file is read and caught before the reader returns.
struct ScenarioFault {
  /// The JSON pointer of the value at fault, or of the member that is missing; empty for the whole text.
  std::string pointer;
  std::string message;
};

/// Faults unless the text is one JSON value in which no object has two members of the same name.
nlohmann::json parseJson(std::string_view text);

/// A value and its place. The value must outlive the cursor.
class JsonCursor {
 public:
  explicit JsonCursor(const nlohmann::json& value, std::string pointer = "")
      : value_(&value), pointer_(std::move(pointer)) {}

  const nlohmann::json& value() const { return *value_; }
  const std::string& pointer() const { return pointer_; }
  [[noreturn]] void fault(std::string message) const { throw ScenarioFault{pointer_, std::move(message)}; }

  std::string text() const;
  bool boolean() const;
  double number() const;

  /// Faults on a fraction and on a value that the type cannot hold.
  template <typename Integer>
  Integer integer() const;

  std::vector<JsonCursor> items() const;
  /// The items, which must be this many numbers.
  std::vector<double> numbers(std::size_t count) const;
  std::vector<std::string> texts() const;

  JsonCursor child(std::string_view key) const;

 private:
  const nlohmann::json* value_;
  std::string pointer_;
};

/// The members of an object.
class JsonMembers {
 public:
  /// Of an object that may have any keys.
  explicit JsonMembers(JsonCursor object);
  /// Faults on a key that is not among these.
  JsonMembers(JsonCursor object, std::initializer_list<std::string_view> knownKeys);

  std::vector<std::string> keys() const;
  bool has(std::string_view key) const { return object_.value().contains(key); }
  /// The member must be there.
  JsonCursor operator[](std::string_view key) const { return object_.child(key); }

  /// Faults when it is missing.
  JsonCursor required(std::string_view key) const;

  /// What `read` makes of the member; nothing when it is missing.
  template <typename Read>
  auto optional(std::string_view key, Read read) const -> std::optional<std::invoke_result_t<Read, JsonCursor>> {
    if (!has(key)) return std::nullopt;
    return std::invoke(read, object_.child(key));
  }

 private:
  JsonCursor object_;
};

template <typename Integer>
Integer JsonCursor::integer() const {
  if (!value_->is_number_integer()) fault("expected a whole number");
  using Limits = std::numeric_limits<Integer>;
  const bool fits = value_->is_number_unsigned()
                        ? value_->get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max())
                        : std::in_range<Integer>(value_->get<std::int64_t>());
  if (!fits) fault("out of range");
  return value_->get<Integer>();
}

}  // namespace norra::scenario
