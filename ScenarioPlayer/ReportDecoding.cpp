#include "ScenarioPlayer/ReportDecoding.h"

#include <istream>
#include <ostream>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"
#include "ScenarioPlayer/Transcript.h"

namespace norra::scenario {
namespace {

std::string errorLine(const DecodingError& error) {
  auto line = R"({"error":)" + jsonText(error.message);
  if (error.member) line += R"(,"member":)" + jsonText(*error.member);
  return line + "}";
}

bool decodeReport(const std::string& report, std::ostream& out) {
  const auto decoded = decodeAction(report);
  const auto* action = std::get_if<Action>(&decoded);
  out << (action != nullptr ? encode(*action) : errorLine(std::get<DecodingError>(decoded))) << '\n';
  return action != nullptr;
}

}  // namespace

bool decodeReports(std::istream& in, std::ostream& out) {
  bool isEveryReportRead = true;
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty() && !decodeReport(line, out)) isEveryReportRead = false;
  }
  return isEveryReportRead;
}

}  // namespace norra::scenario
