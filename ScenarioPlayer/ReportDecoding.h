#pragma once

#include <iosfwd>

namespace norra::scenario {

/// Reads one report a line and prints for each the report written again, or what is wrong with it. Empty lines are
/// passed over. True when every report could be read.
bool decodeReports(std::istream& in, std::ostream& out);

}  // namespace norra::scenario
