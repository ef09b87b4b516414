#include "Client/formats/JsonLine.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>

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

nlohmann::ordered_json membersOf(const Report& report) {
  auto members = nlohmann::ordered_json::parse(report.event, nullptr, false);
  if (!members.is_object()) members = nlohmann::ordered_json::object();
  members["date"] = iso8601(report.date);
  members["isApplicationEvent"] = report.isApplicationEvent;
  return members;
}

std::string jsonLine(const Report& report) { return membersOf(report).dump(); }

}  // namespace norra
