#include "ScenarioPlayer/JsonCursor.h"

#include <algorithm>
#include <set>

namespace norra::scenario {
namespace {

using nlohmann::json;

std::string extended(const std::string& pointer, std::string_view key) {
  std::string result = pointer + "/";
  for (const char character : key) {
    if (character == '~') {
      result += "~0";
    } else if (character == '/') {
      result += "~1";
    } else {
      result += character;
    }
  }
  return result;
}

/// Follows a parser through a text and faults at the second member of one name.
class DuplicateCheck {
 public:
  void see(json::parse_event_t event, const json& parsed) {
    switch (event) {
      case json::parse_event_t::object_start: return open(true);
      case json::parse_event_t::array_start: return open(false);
      case json::parse_event_t::object_end:
      case json::parse_event_t::array_end: return levels_.pop_back();
      case json::parse_event_t::key: return enterMember(parsed.get<std::string>());
      case json::parse_event_t::value: return enterItem();
    }
  }

 private:
  struct Level {
    bool isObject = false;
    std::string pointer;
    std::set<std::string> keys{};
    std::size_t itemCount = 0;
    std::string current{};
  };

  void open(bool isObject) {
    enterItem();
    levels_.push_back({isObject, levels_.empty() ? "" : levels_.back().current});
  }

  void enterMember(const std::string& key) {
    auto& level = levels_.back();
    level.current = extended(level.pointer, key);
    if (!level.keys.insert(key).second) throw ScenarioFault{level.current, "duplicate key"};
  }

  void enterItem() {
    if (levels_.empty() || levels_.back().isObject) return;
    auto& level = levels_.back();
    level.current = extended(level.pointer, std::to_string(level.itemCount++));
  }

  std::vector<Level> levels_;
};

}  // namespace

json parseJson(std::string_view text) {
  DuplicateCheck check;
  try {
    return json::parse(text, [&check](int /*depth*/, json::parse_event_t event, json& parsed) {
      check.see(event, parsed);
      return true;
    });
  } catch (const json::exception& error) {
    throw ScenarioFault{"", std::string("not a JSON text: ") + error.what()};
  }
}

std::string JsonCursor::text() const {
  if (!value_->is_string()) fault("expected a text");
  return value_->get<std::string>();
}

bool JsonCursor::boolean() const {
  if (!value_->is_boolean()) fault("expected true or false");
  return value_->get<bool>();
}

double JsonCursor::number() const {
  if (!value_->is_number()) fault("expected a number");
  return value_->get<double>();
}

std::vector<JsonCursor> JsonCursor::items() const {
  if (!value_->is_array()) fault("expected a list");
  std::vector<JsonCursor> result;
  for (std::size_t index = 0; index < value_->size(); ++index) {
    result.emplace_back((*value_)[index], extended(pointer_, std::to_string(index)));
  }
  return result;
}

std::vector<double> JsonCursor::numbers(std::size_t count) const {
  std::vector<double> result;
  for (const auto& item : items()) result.push_back(item.number());
  if (result.size() != count) fault("expected " + std::to_string(count) + " numbers");
  return result;
}

std::vector<std::string> JsonCursor::texts() const {
  std::vector<std::string> result;
  for (const auto& item : items()) result.push_back(item.text());
  return result;
}

JsonCursor JsonCursor::child(std::string_view key) const {
  return JsonCursor(value_->at(std::string(key)), extended(pointer_, key));
}

JsonMembers::JsonMembers(JsonCursor object) : object_(std::move(object)) {
  if (!object_.value().is_object()) object_.fault("expected an object");
}

JsonMembers::JsonMembers(JsonCursor object, std::initializer_list<std::string_view> knownKeys)
    : JsonMembers(std::move(object)) {
  for (const auto& key : keys()) {
    if (std::ranges::find(knownKeys, key) == knownKeys.end()) object_.child(key).fault("unknown key");
  }
}

std::vector<std::string> JsonMembers::keys() const {
  std::vector<std::string> result;
  for (const auto& [key, value] : object_.value().items()) result.push_back(key);
  return result;
}

JsonCursor JsonMembers::required(std::string_view key) const {
  if (!has(key)) throw ScenarioFault{extended(object_.pointer(), key), "missing"};
  return object_.child(key);
}

}  // namespace norra::scenario
