// How reports are written out.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Client/formats/Report.h"

namespace norra {

/// Gives one line without its end for each report, called in the order of the reports.
using ReportFormatter = std::function<std::string(const Report&)>;

struct FormatOptions {
  /// Whether the lines may hold a terminal's color sequences.
  bool usesColor = false;
};

/// The names of all formats; the first is the usual one.
std::vector<std::string> formatNames();

/// The line that comes before all reports in a format that has one; empty for the others.
std::string headOf(std::string_view name);

/// A formatter of its own for one stream of reports. Empty for a name that is no format's.
ReportFormatter newFormatter(std::string_view name, const FormatOptions& options);

}  // namespace norra
