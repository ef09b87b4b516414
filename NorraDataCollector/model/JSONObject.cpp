#include "NorraDataCollector/model/JSONObject.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

namespace norra {

/// Is told of every piece of the text in turn; an answer of false would end the reading.
class JSONObject::Reader {
 public:
  bool null() { return add(JSONNull()); }
  bool boolean(bool) { return add(JSONOther()); }
  bool number_integer(std::int64_t number) { return add(number); }
  bool number_unsigned(std::uint64_t number) {
    return add(static_cast<JSONInteger>(std::min<std::uint64_t>(number, std::numeric_limits<JSONInteger>::max())));
  }
  bool number_float(double, const std::string&) { return add(JSONOther()); }
  bool string(std::string& text) { return add(std::move(text)); }
  bool binary(std::vector<std::uint8_t>&) { return false; }  // there is none in a text
  bool key(std::string& name) {
    if (depth_ == 1) object_.members_.emplace_back(std::move(name), JSONNull());
    return true;
  }
  bool start_object(std::size_t) {
    if (depth_ == 0) beginObject();
    return open();
  }
  bool start_array(std::size_t) { return open(); }
  bool end_object() { return close(); }
  bool end_array() { return close(); }
  bool parse_error(std::size_t, const std::string&, const std::exception&) { return false; }

  std::variant<JSONObject, Fault> result() {
    if (!isObject_) return Fault::notAnObject;
    return std::move(object_);
  }

 private:
  void beginObject() {
    constexpr std::size_t usualCount = 8;
    isObject_ = true;
    object_.members_.reserve(usualCount);
  }

  bool add(JSONValue value) {
    if (depth_ == 1 && isObject_) object_.members_.back().second = std::move(value);
    return true;
  }

  bool open() {
    add(JSONOther());
    ++depth_;
    return true;
  }

  bool close() {
    --depth_;
    return true;
  }

  JSONObject object_;
  std::size_t depth_ = 0;
  bool isObject_ = false;
};

std::variant<JSONObject, JSONObject::Fault> JSONObject::read(std::string_view text) {
  Reader reader;
  if (!nlohmann::json::sax_parse(text, &reader)) return Fault::notJSON;
  return reader.result();
}

const JSONValue* JSONObject::find(std::string_view name) const {
  const auto hasName = [&](const auto& member) { return member.first == name; };
  const auto found = std::find_if(members_.rbegin(), members_.rend(), hasName);
  return found == members_.rend() || std::holds_alternative<JSONNull>(found->second) ? nullptr : &found->second;
}

}  // namespace norra
