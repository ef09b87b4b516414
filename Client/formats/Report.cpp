#include "Client/formats/Report.h"

#include <nlohmann/json.hpp>

#include "NorraBase/TimeText.h"

namespace norra {
nlohmann::ordered_json membersOf(const Report& report) {
  auto members = nlohmann::ordered_json::parse(report.event, nullptr, false);
  if (!members.is_object()) members = nlohmann::ordered_json::object();
  members["date"] = iso8601(report.date);
  members["isApplicationEvent"] = report.isApplicationEvent;
  return members;
}

std::string jsonLine(const Report& report) { return membersOf(report).dump(); }

}  // namespace norra
