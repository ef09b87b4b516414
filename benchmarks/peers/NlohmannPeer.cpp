#include <nlohmann/json.hpp>

#include "benchmarks/peers/WireFormatRecords.h"

namespace norra::benchmarks::nlohmannPeer {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;

void add(ordered_json& object, std::string_view name, const std::string& text) { object.emplace(name, text); }
void add(ordered_json& object, std::string_view name, const URL& url) { object.emplace(name, url.absoluteString); }
void add(ordered_json& object, std::string_view name, std::int32_t number) { object.emplace(name, number); }
void add(ordered_json& object, std::string_view name, ToggleState state) {
  object.emplace(name, static_cast<std::int32_t>(state));
}

template <typename Enumeration>
requires requires(Enumeration value) { rawValue(value); }
void add(ordered_json& object, std::string_view name, Enumeration value) { object.emplace(name, rawValue(value)); }

template <typename Value>
void add(ordered_json& object, std::string_view name, const std::optional<Value>& value) {
  if (value) add(object, name, *value);
}

/// The library leaves slashes as they are, and they stand in strings only.
std::string withEscapedSlashes(std::string text) {
  for (auto slash = text.find('/'); slash != std::string::npos; slash = text.find('/', slash + 2)) {
    text.insert(slash, 1, '\\');
  }
  return text;
}

class Object {
 public:
  explicit Object(const json& object) : object_(object) {}

  std::optional<std::string_view> text(std::string_view member) const {
    const auto* value = find(member);
    if (value == nullptr) return std::nullopt;
    if (!value->is_string()) throw PeerFault{std::string(member)};
    return value->get_ref<const std::string&>();
  }

  std::optional<std::int64_t> number(std::string_view member) const {
    const auto* value = find(member);
    if (value == nullptr) return std::nullopt;
    if (!value->is_number_integer()) throw PeerFault{std::string(member)};
    return value->get<std::int64_t>();
  }

 private:
  const json* find(std::string_view member) const {
    const auto found = object_.find(member);
    return found == object_.end() || found->is_null() ? nullptr : &*found;
  }

  const json& object_;
};

}  // namespace

std::string encode(const Action& action) {
  ordered_json object;
  add(object, "action", kind(action));
  const auto addFields = [&]<typename Data>(const Data& data) {
    forEachField<Data>([&](const auto& field) { add(object, field.name, data.*field.member); });
  };
  std::visit(addFields, action);
  return withEscapedSlashes(object.dump());
}

Action decode(std::string_view text) {
  const auto value = json::parse(text, nullptr, false);
  if (!value.is_object()) throw PeerFault{};
  const Object object(value);
  return RecordReader(object).action();
}

}  // namespace norra::benchmarks::nlohmannPeer
