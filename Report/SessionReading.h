// Reading a recorded session: one JSON object a line, each a report with its date.
#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "NorraDataCollector/model/Action.h"
#include "Report/Instant.h"

namespace norra::report {

struct RecordedReport {
  Instant date;
  Action action;
  bool operator==(const RecordedReport&) const = default;
};

/// The report that a line holds, or what is wrong with the line. The message never quotes a value of the line. A
/// password's value, should somebody have written one into the file, is left out.
std::variant<RecordedReport, std::string> readRecordedReport(std::string_view line);

struct LineFault {
  /// Counted from 1, blank lines included.
  std::size_t line = 0;
  std::string problem;
};

enum class AfterFault { goOn, end };
using FaultHandler = std::function<AfterFault(const LineFault&)>;

/// All reports in the order of their lines. Blank lines are passed over; `faultFound` hears of each line that cannot be
/// read and says whether to go on. What the stream itself failed at is for its owner to ask it.
std::vector<RecordedReport> readSession(std::istream& lines, const FaultHandler& faultFound);

}  // namespace norra::report
