// Whether this desktop is ready to be collected from.
#pragma once

#include <string>
#include <vector>

#include "Platform/Linux/DesktopReadiness.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

using linux_desktop::DesktopFinding;

/// Looks at everything that collection needs, without collecting. Takes a bounded time. Main thread.
std::vector<DesktopFinding> checkDesktop(linux_desktop::EventLoop& loop);

/// The findings one a line, for a person.
std::string textOf(const std::vector<DesktopFinding>& findings);

/// Whether nothing is missing, and nothing that is done goes unseen for the kind of the session.
bool isReady(const std::vector<DesktopFinding>& findings);

}  // namespace norra
