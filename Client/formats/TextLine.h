#pragma once

#include "Client/formats/Report.h"

namespace norra {

/// For a person: the local time of day, the application in front, what was done. Control characters in texts are
/// replaced, so that no window title reaches the terminal as a command.
ReportFormatter newTextFormatter(const FormatOptions& options);

}  // namespace norra
