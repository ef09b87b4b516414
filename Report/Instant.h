// Moments and lengths of time in a recorded session, to the microsecond.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace norra::report {

using Duration = std::chrono::microseconds;
/// Microseconds since the Unix epoch, UTC.
using Instant = std::chrono::sys_time<Duration>;

/// The moment that a text such as "2025-03-04T10:15:30.123456Z" names; the fraction may be left out or have up to six
/// digits. Nothing for any other form, another time zone or a date that no calendar has.
std::optional<Instant> instantFrom(std::string_view text);

}  // namespace norra::report
