// Whether the session bus can start the service, and with which display.
#pragma once

#include "Platform/Linux/DesktopReadiness.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

using linux_desktop::DesktopFinding;

/// Takes a bounded time and starts nothing. Main thread.
DesktopFinding checkService(linux_desktop::EventLoop& loop);

/// Of the service, which may have another environment than this program: what it sees where it runs, otherwise what
/// systemd would give it. Takes a bounded time and starts nothing. Main thread.
DesktopFinding checkDisplayOfService(linux_desktop::EventLoop& loop);

}  // namespace norra
