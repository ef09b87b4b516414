// Whether this desktop is ready to be collected from.
#pragma once

#include <string>
#include <vector>

#include "Client/DesktopFinding.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

/// Looks at everything that collection needs, without collecting. Takes a bounded time. Main thread.
std::vector<DesktopFinding> checkDesktop(linux_desktop::EventLoop& loop);

/// One of them: whether the elements of applications can be read.
DesktopFinding checkAccessibilityBus(linux_desktop::EventLoop& loop);

/// The findings one a line, for a person.
std::string textOf(const std::vector<DesktopFinding>& findings);

/// Whether nothing is missing.
bool isReady(const std::vector<DesktopFinding>& findings);

}  // namespace norra
