#include "Report/SessionReading.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "NorraDataCollector/model/ActionDecoding.h"

namespace norra::report {
namespace {

using nlohmann::json;

struct Envelope {
  std::optional<Instant> date;
  bool saysWhetherApplicationEvent = false;
};

/// The members that recording adds to a report. The line is known to be a JSON object.
Envelope readEnvelope(std::string_view line) {
  const auto object = json::parse(line);
  const auto date = object.find("date");
  const auto flag = object.find("isApplicationEvent");
  Envelope envelope;
  if (date != object.end() && date->is_string()) envelope.date = instantFrom(date->get_ref<const std::string&>());
  envelope.saysWhetherApplicationEvent = flag != object.end() && flag->is_boolean();
  return envelope;
}

void forgetPassword(Action& action) {
  if (auto* password = std::get_if<ChangePasswordData>(&action)) password->newValue.clear();
}

bool isBlank(std::string_view line) { return line.find_first_not_of(" \t\r") == std::string_view::npos; }

}  // namespace

std::variant<RecordedReport, std::string> readRecordedReport(std::string_view line) {
  auto decoded = decodeAction(line);
  if (const auto* error = std::get_if<DecodingError>(&decoded)) return error->message;
  const auto envelope = readEnvelope(line);
  if (!envelope.date) return "Member \"date\" must be a UTC date and time such as \"2025-03-04T10:15:30.123456Z\"";
  if (!envelope.saysWhetherApplicationEvent) return "Member \"isApplicationEvent\" must be true or false";
  RecordedReport report{*envelope.date, std::get<Action>(std::move(decoded))};
  forgetPassword(report.action);
  return report;
}

std::vector<RecordedReport> readSession(std::istream& lines, const FaultHandler& faultFound) {
  std::vector<RecordedReport> reports;
  std::string line;
  for (std::size_t number = 1; std::getline(lines, line); ++number) {
    if (isBlank(line)) continue;
    auto read = readRecordedReport(line);
    if (auto* report = std::get_if<RecordedReport>(&read)) {
      reports.push_back(std::move(*report));
    } else if (faultFound({number, std::get<std::string>(read)}) == AfterFault::end) {
      break;
    }
  }
  return reports;
}

}  // namespace norra::report
