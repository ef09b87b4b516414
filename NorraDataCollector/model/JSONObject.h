// One level of JSON, which is all that a report has.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace norra {

struct JSONNull {};
/// A number without fraction and exponent; one beyond 64 bits is the nearest limit.
using JSONInteger = std::int64_t;
/// A value of any other type but a string.
struct JSONOther {};

using JSONValue = std::variant<JSONNull, std::string, JSONInteger, JSONOther>;

/// The members of one JSON object. Of what lies deeper nothing is kept, so that a report costs no more than its texts.
class JSONObject {
 public:
  enum class Fault { notJSON, notAnObject };

  static std::variant<JSONObject, Fault> read(std::string_view text);

  /// The value of the last member of this name. Null: there is none, or it is JSON's null.
  const JSONValue* find(std::string_view name) const;

 private:
  class Reader;

  std::vector<std::pair<std::string, JSONValue>> members_;
};

}  // namespace norra
