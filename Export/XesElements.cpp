#include "Export/XesElements.h"

#include <string>

namespace norra::exporting {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

/// A reader turns tabs and ends of lines in attributes into blanks unless they are written as references.
std::string escaped(char character) {
  switch (character) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\t': return "&#9;";
    case '\n': return "&#10;";
    case '\r': return "&#13;";
    default: break;
  }
  const bool isControl = static_cast<unsigned char>(character) < 0x20;
  return isControl ? std::string(replacement) : std::string(1, character);
}

/// U+FFFE and U+FFFF, which are three bytes and no characters of XML.
bool beginsWithNoncharacter(std::string_view text) {
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

std::string escaped(std::string_view text) {
  std::string safe;
  while (!text.empty()) {
    const bool isNone = beginsWithNoncharacter(text);
    safe += isNone ? std::string(replacement) : escaped(text.front());
    text.remove_prefix(isNone ? 3 : 1);
  }
  return safe;
}

void writeElement(std::ostream& out, std::string_view type, std::string_view key, std::string_view value) {
  out << '<' << type << " key=\"" << key << "\" value=\"" << escaped(value) << "\"/>\n";
}

}  // namespace

void writeString(std::ostream& out, std::string_view key, std::string_view value) {
  writeElement(out, "string", key, value);
}

void writeInteger(std::ostream& out, std::string_view key, std::int64_t value) {
  writeElement(out, "int", key, std::to_string(value));
}

void writeDate(std::ostream& out, std::string_view key, std::string_view value) {
  writeElement(out, "date", key, value);
}

}  // namespace norra::exporting
