// The report as one HTML page that needs nothing else.
#pragma once

#include <ostream>
#include <string_view>

#include "Report/PageData.h"

namespace norra::report {

/// Writes the whole page. Whether it arrived is for the owner of the stream to ask it.
void writeReportPage(std::ostream& out, const PageHeading& heading, const std::vector<RecordedReport>& reports);

// The page without a session, put together at build time from the files in page/.

/// Holds each marker once, the title's first.
extern const std::string_view pageTemplate;

inline constexpr std::string_view titleMarker = "{{title}}";
inline constexpr std::string_view dataMarker = "{{data}}";

}  // namespace norra::report
