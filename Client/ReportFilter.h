// Which reports a user wants to see. A report does not name its application; the last switch before it does.
#pragma once

#include <string>
#include <vector>

#include "Client/formats/Report.h"
#include "NorraDataCollector/model/Action.h"

namespace norra {

/// Empty lists want everything.
struct WantedReports {
  /// Names or identifiers of applications, in any letter case.
  std::vector<std::string> applications;
  std::vector<CodingKeys> kinds;
};

/// Remembers which application the last switch went to. Is asked about every report, in the order of the reports.
class ReportFilter {
 public:
  explicit ReportFilter(WantedReports wanted) : wanted_(std::move(wanted)) {}

  /// A report of before the first switch belongs to no known application; one of the collection itself to all.
  bool wants(const Report& report);

 private:
  bool wantsApplicationOf(const Action& action);
  bool isWanted(const ChangeApplicationData& application) const;

  const WantedReports wanted_;
  bool isInWantedApplication_ = false;
};

}  // namespace norra
