// A recorded session as an event log in XES (IEEE 1849-2016), for the tools of process mining.
#pragma once

#include <ostream>
#include <vector>

#include "Report/SessionReading.h"

namespace norra::exporting {

/// What one case of the log is.
enum class CaseNotion {
  application,  // what was done in one process of an application, from its first use in a collection to its last
  visit,        // from one switch of the application in front to the next
  collection,   // from a start of collection to its stop
};

/// One trace for each case, in the order of their first reports, and one event for each report but starts and stops of
/// collection. An event's name is what was done and to what; no value is part of it. The members of the report are its
/// other attributes, under their own names.
void writeXesLog(std::ostream& out, const std::vector<report::RecordedReport>& reports, CaseNotion notion);

}  // namespace norra::exporting
