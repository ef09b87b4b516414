// What a client receives, and what makes lines of it.
#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace norra {

/// What the service told of one interaction.
struct Report {
  /// The JSON text of one action; empty when the service could not write it.
  std::string event;
  std::chrono::system_clock::time_point date;
  bool isApplicationEvent = false;
};

/// Gives one line without its end for each report, called in the order of the reports.
using ReportFormatter = std::function<std::string(const Report&)>;

struct FormatOptions {
  /// Whether the lines may hold a terminal's color sequences.
  bool usesColor = false;
};

/// The members of the report's event, then "date" in ISO 8601 (UTC, microseconds) and "isApplicationEvent". An event
/// that is no JSON object is left out.
nlohmann::ordered_json membersOf(const Report& report);

/// The same as the text of one JSON object.
std::string jsonLine(const Report& report);

}  // namespace norra
