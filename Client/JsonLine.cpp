#include <array>
#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>

#include "Client/ReportFormat.h"

namespace norra {
namespace {

std::string iso8601(std::chrono::system_clock::time_point date) {
  const auto microseconds =
      std::chrono::duration_cast<std::chrono::microseconds>(date.time_since_epoch()).count() % 1'000'000;
  const auto seconds = std::chrono::system_clock::to_time_t(date);
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  std::array<char, 48> text{};
  const auto length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &utc);
  std::snprintf(text.data() + length, text.size() - length, ".%06dZ", static_cast<int>(microseconds));
  return text.data();
}

}  // namespace

std::string jsonLine(const Report& report) {
  auto line = nlohmann::ordered_json::parse(report.event, nullptr, false);
  if (!line.is_object()) line = nlohmann::ordered_json::object();
  line["date"] = iso8601(report.date);
  line["isApplicationEvent"] = report.isApplicationEvent;
  return line.dump();
}

}  // namespace norra
