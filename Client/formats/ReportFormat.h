// How reports are written out: the formats by their names.
//
// A format is a function from a report to a line, so that a stream of reports can be cut anywhere. One that has to
// remember what came before, such as which application is in front, is made anew for each stream.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Client/formats/Report.h"

namespace norra {

/// The names of all formats; the first is the usual one.
std::vector<std::string> formatNames();

/// The line that comes before all reports in a format that has one; empty for the others.
std::string headOf(std::string_view name);

/// A formatter of its own for one stream of reports. Empty for a name that is no format's.
ReportFormatter newFormatter(std::string_view name, const FormatOptions& options);

}  // namespace norra
