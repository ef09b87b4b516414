// Attributes of XES as XML elements.
#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>

namespace norra::exporting {

/// `value` is UTF-8. Characters that XML cannot hold, such as most control characters, become U+FFFD.
void writeString(std::ostream& out, std::string_view key, std::string_view value);
void writeInteger(std::ostream& out, std::string_view key, std::int64_t value);
/// `value` is in ISO 8601 with its time zone.
void writeDate(std::ostream& out, std::string_view key, std::string_view value);

}  // namespace norra::exporting
