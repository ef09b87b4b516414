#include "Client/ReportFilter.h"

#include <algorithm>

#include "NorraBase/OneOf.h"
#include "NorraBase/Text.h"
#include "NorraDataCollector/model/ActionDecoding.h"

namespace norra {
bool ReportFilter::wants(const Report& report) {
  if (wanted_.applications.empty() && wanted_.kinds.empty()) return true;
  const auto decoded = decodeAction(report.event);
  const auto* action = std::get_if<Action>(&decoded);
  if (action == nullptr || !wantsApplicationOf(*action)) return false;
  return wanted_.kinds.empty() || isOneOf(wanted_.kinds, kind(*action));
}

bool ReportFilter::wantsApplicationOf(const Action& action) {
  if (wanted_.applications.empty()) return true;
  if (std::holds_alternative<CollectorData>(action)) {
    isInWantedApplication_ = false;  // after a pause another application may be in front, without a switch
    return true;
  }
  if (const auto* change = std::get_if<ChangeApplicationData>(&action)) isInWantedApplication_ = isWanted(*change);
  return isInWantedApplication_;
}

bool ReportFilter::isWanted(const ChangeApplicationData& application) const {
  return std::ranges::any_of(wanted_.applications, [&](const auto& name) {
    return equalsIgnoringCase(name, application.applicationName) ||
           equalsIgnoringCase(name, application.fileDescription);
  });
}

}  // namespace norra
