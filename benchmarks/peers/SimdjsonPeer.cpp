#include <simdjson.h>

#include "benchmarks/peers/WireFormatRecords.h"

namespace norra::benchmarks::simdjsonPeer {
namespace {

namespace ondemand = simdjson::ondemand;

class Object {
 public:
  explicit Object(ondemand::object object) : object_(object) {}

  std::optional<std::string_view> text(std::string_view member) {
    auto value = find(member);
    if (!value) return std::nullopt;
    return valueOrFault(member, value->get_string());
  }

  std::optional<std::int64_t> number(std::string_view member) {
    auto value = find(member);
    if (!value) return std::nullopt;
    return valueOrFault(member, value->get_int64());
  }

 private:
  template <typename Value>
  static Value valueOrFault(std::string_view member, simdjson::simdjson_result<Value> result) {
    if (result.error() != simdjson::SUCCESS) throw PeerFault{std::string(member)};
    return result.value_unsafe();
  }

  std::optional<ondemand::value> find(std::string_view member) {
    ondemand::value value;
    const auto error = object_.find_field_unordered(member).get(value);
    if (error == simdjson::NO_SUCH_FIELD) return std::nullopt;
    if (error != simdjson::SUCCESS) throw PeerFault{};
    if (value.is_null()) return std::nullopt;
    return value;
  }

  ondemand::object object_;
};

}  // namespace

Action decode(std::string_view text) {
  thread_local ondemand::parser parser;
  thread_local std::string buffer;
  buffer.reserve(text.size() + simdjson::SIMDJSON_PADDING);
  buffer.assign(text);
  ondemand::document document;
  ondemand::object object;
  if (parser.iterate(buffer.data(), buffer.size(), buffer.capacity()).get(document) != simdjson::SUCCESS ||
      document.get_object().get(object) != simdjson::SUCCESS) {
    throw PeerFault{};
  }
  Object members(object);
  return RecordReader(members).action();
}

}  // namespace norra::benchmarks::simdjsonPeer
