#include "Report/Instant.h"

#include <algorithm>

namespace norra::report {
namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Takes a text apart from the left. Once something did not fit, nothing fits any more.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  /// The number that exactly so many digits spell.
  int number(std::size_t digits) {
    const auto text = take(digits);
    if (!std::all_of(text.begin(), text.end(), isDigit)) fits_ = false;
    int value = 0;
    for (const char digit : text) value = value * 10 + (digit - '0');
    return fits_ ? value : 0;
  }

  void literal(char expected) {
    if (take(1) != std::string_view(&expected, 1)) fits_ = false;
  }

  /// ".5" is 500,000 microseconds; nothing to take is none.
  int fractionInMicroseconds() {
    if (!rest_.starts_with('.')) return 0;
    rest_.remove_prefix(1);
    const auto digits = static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), isDigit) - rest_.begin());
    if (digits < 1 || digits > 6) fits_ = false;
    int value = number(std::min<std::size_t>(digits, 6));
    for (auto place = digits; place < 6; ++place) value *= 10;
    return value;
  }

  bool isAtEnd() const { return fits_ && rest_.empty(); }

 private:
  std::string_view take(std::size_t count) {
    if (rest_.size() < count) fits_ = false;
    const auto taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
  bool fits_ = true;
};

std::chrono::year_month_day dayFrom(Scanner& scanner) {
  const int year = scanner.number(4);
  scanner.literal('-');
  const int month = scanner.number(2);
  scanner.literal('-');
  const int day = scanner.number(2);
  return std::chrono::year{year} / month / day;
}

std::optional<Duration> timeOfDayFrom(Scanner& scanner) {
  const int hour = scanner.number(2);
  scanner.literal(':');
  const int minute = scanner.number(2);
  scanner.literal(':');
  const int second = scanner.number(2);
  const int fraction = scanner.fractionInMicroseconds();
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second) + Duration(fraction);
}

}  // namespace

std::optional<Instant> instantFrom(std::string_view text) {
  Scanner scanner(text);
  const auto day = dayFrom(scanner);
  scanner.literal('T');
  const auto timeOfDay = timeOfDayFrom(scanner);
  scanner.literal('Z');
  if (!scanner.isAtEnd() || !day.ok() || !timeOfDay) return std::nullopt;
  return Instant(std::chrono::sys_days(day)) + *timeOfDay;
}

}  // namespace norra::report
