#include "NorraBase/TimeText.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace norra {
namespace {

using std::chrono::system_clock;

std::string withFraction(const char* format, const std::tm& time, int digits, int fraction) {
  std::array<char, 48> text{};
  const auto length = std::strftime(text.data(), text.size(), format, &time);
  std::snprintf(text.data() + length, text.size() - length, ".%0*d", digits, fraction);
  return text.data();
}

/// What is left of the time after its last whole second.
template <typename Unit>
int fraction(system_clock::time_point time) {
  constexpr auto unitsOfASecond = Unit(std::chrono::seconds(1)).count();
  return static_cast<int>(std::chrono::duration_cast<Unit>(time.time_since_epoch()).count() % unitsOfASecond);
}

}  // namespace

std::string localTimeOfDay(system_clock::time_point time) {
  const auto seconds = system_clock::to_time_t(time);
  std::tm local{};
  localtime_r(&seconds, &local);
  return withFraction("%H:%M:%S", local, 3, fraction<std::chrono::milliseconds>(time));
}

std::string iso8601(system_clock::time_point time) {
  const auto seconds = system_clock::to_time_t(time);
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  return withFraction("%Y-%m-%dT%H:%M:%S", utc, 6, fraction<std::chrono::microseconds>(time)) + "Z";
}

}  // namespace norra
