#include "NorraDataCollector/elements/AttributeValueText.h"

#include <array>
#include <charconv>
#include <variant>

namespace norra {
namespace {

template <typename... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};

template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

std::string numberText(const NSNumber& number) {
  return std::visit(Overloaded{[](bool value) { return std::string(value ? "1" : "0"); },
                               [](std::int64_t value) { return std::to_string(value); },
                               [](double value) { return decimalText(value); }},
                    number.value);
}

}  // namespace

std::string decimalText(double number) {
  // The longest finite double has 309 digits before the point, the smallest 1074 behind it.
  std::array<char, 1100> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed).ptr;
  return {digits.begin(), end};
}

std::string description(const AXAttributeValue& value) {
  return std::visit(
      Overloaded{[](std::monostate) { return std::string(); }, [](const std::string& text) { return text; },
                 [](const NSNumber& number) { return numberText(number); },
                 [](const NSURL& url) { return url.absoluteString; },
                 [](const CFOther& other) { return other.description; },
                 [&](const auto&) { return std::string(typeName(value)); }},
      value);
}

std::string_view typeName(const AXAttributeValue& value) {
  return std::visit(
      Overloaded{[](const std::string&) { return std::string_view("CFString"); },
                 [](const NSNumber& number) {
                   return std::string_view(std::holds_alternative<bool>(number.value) ? "CFBoolean" : "CFNumber");
                 },
                 [](const AXUIElement&) { return std::string_view("AXUIElement"); },
                 [](const std::vector<AXUIElement>&) { return std::string_view("CFArray"); },
                 [](const NSURL&) { return std::string_view("CFURL"); },
                 [](const CFRange&) { return std::string_view("AXValue"); },
                 [](const CGPoint&) { return std::string_view("AXValue"); },
                 [](const auto&) { return std::string_view("CFType"); }},
      value);
}

}  // namespace norra
