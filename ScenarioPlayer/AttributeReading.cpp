#include "ScenarioPlayer/AttributeReading.h"

#include <array>
#include <cmath>

namespace norra::scenario {
namespace {

using simulated::AttributeContent;

AttributeContent readElement(const JsonCursor& cursor, const References& references) {
  return references.element(cursor);
}

AttributeContent readElements(const JsonCursor& cursor, const References& references) {
  std::vector<simulated::ElementReference> elements;
  for (const auto& item : cursor.items()) elements.push_back(references.element(item));
  return elements;
}

AttributeContent readURL(const JsonCursor& cursor, const References& /*references*/) { return NSURL{cursor.text()}; }

AttributeContent readRange(const JsonCursor& cursor, const References& /*references*/) {
  const auto items = cursor.items();
  if (items.size() != 2) cursor.fault("expected a location and a length");
  return CFRange{items[0].integer<std::int64_t>(), items[1].integer<std::int64_t>()};
}

AttributeContent readPoint(const JsonCursor& cursor, const References& /*references*/) {
  const auto numbers = cursor.numbers(2);
  return CGPoint{numbers[0], numbers[1]};
}

AttributeContent readOther(const JsonCursor& cursor, const References& /*references*/) {
  return CFOther{cursor.text()};
}

AttributeContent readError(const JsonCursor& cursor, const References& /*references*/) {
  return simulated::ReadFailure{cursor.integer<AXError>()};
}

AttributeContent readNothing(const JsonCursor& cursor, const References& /*references*/) {
  if (!cursor.boolean()) cursor.fault("expected true");
  return std::monostate{};
}

struct ContentForm {
  std::string_view key;
  AttributeContent (*read)(const JsonCursor&, const References&);
};

constexpr std::array contentForms{ContentForm{"element", readElement}, ContentForm{"elements", readElements},
                                  ContentForm{"url", readURL},         ContentForm{"range", readRange},
                                  ContentForm{"point", readPoint},     ContentForm{"other", readOther},
                                  ContentForm{"error", readError},     ContentForm{"nothing", readNothing}};

AttributeContent readForm(const JsonCursor& cursor, const References& references) {
  const JsonMembers form(cursor);
  const auto keys = form.keys();
  for (const auto& key : keys) {
    if (std::ranges::find(contentForms, key, &ContentForm::key) == contentForms.end()) form[key].fault("unknown key");
  }
  if (keys.size() != 1) cursor.fault("expected exactly one key");
  return std::ranges::find(contentForms, keys[0], &ContentForm::key)->read(form[keys[0]], references);
}

/// A whole number is one, however it is written.
NSNumber readNumber(const nlohmann::json& value) {
  constexpr double beyondInteger = 0x1p63;
  const auto number = value.get<double>();
  if (value.is_number_integer() &&
      (!value.is_number_unsigned() || std::in_range<std::int64_t>(value.get<std::uint64_t>()))) {
    return {value.get<std::int64_t>()};
  }
  const bool isWhole = std::trunc(number) == number && number >= -beyondInteger && number < beyondInteger;
  if (isWhole) return {static_cast<std::int64_t>(number)};
  return {number};
}

AttributeContent readContent(const JsonCursor& cursor, const References& references) {
  const auto& value = cursor.value();
  if (value.is_null()) return simulated::ReadFailure{axError::noValue};
  if (value.is_boolean()) return NSNumber{value.get<bool>()};
  if (value.is_number()) return readNumber(value);
  if (value.is_string()) return value.get<std::string>();
  return readForm(cursor, references);
}

}  // namespace

simulated::ElementReference References::element(const JsonCursor& cursor) const {
  auto identifier = cursor.text();
  if (!elements.contains(identifier)) cursor.fault("no element has this identifier");
  return {std::move(identifier)};
}

ProcessIdentifier References::application(const JsonCursor& cursor) const {
  const auto process = cursor.integer<ProcessIdentifier>();
  if (!applications.contains(process)) cursor.fault("no application has this process identifier");
  return process;
}

std::optional<ProcessIdentifier> References::applicationOrNone(const JsonCursor& cursor) const {
  if (cursor.value().is_null()) return std::nullopt;
  return application(cursor);
}

simulated::Attributes readAttributes(const JsonCursor& cursor, const References& references) {
  simulated::Attributes attributes;
  const JsonMembers members(cursor);
  for (const auto& name : members.keys()) attributes[name] = readContent(members[name], references);
  return attributes;
}

}  // namespace norra::scenario
