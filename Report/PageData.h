// The data that a report page shows, as a JSON text that may stand in an HTML script element.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Report/SessionReading.h"
#include "Report/SessionSummary.h"

namespace norra::report {

/// What the page says about the session beside the session itself.
struct PageHeading {
  std::string title;
  /// The file's name; empty when there is none to tell.
  std::string source;
  std::size_t unreadableLines = 0;
};

/// Compact: each text once, and each action as a row of integers. The page's data.js says how a row is laid out. The
/// text holds no "<" and no line separator, so that no text of a report can end the script element.
std::string pageData(const PageHeading& heading, const std::vector<RecordedReport>& reports,
                     const SessionSummary& summary);

}  // namespace norra::report
