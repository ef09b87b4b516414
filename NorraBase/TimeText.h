// Times as texts.
#pragma once

#include <chrono>
#include <string>

namespace norra {

/// Such as 09:41:00.123, in the time zone of this process.
std::string localTimeOfDay(std::chrono::system_clock::time_point time);

/// Such as 2026-01-31T08:41:00.123456Z.
std::string iso8601(std::chrono::system_clock::time_point time);

}  // namespace norra
