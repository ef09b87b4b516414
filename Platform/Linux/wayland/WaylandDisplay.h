// The compositor of a Wayland session, with the X server beside it that some applications use.
#pragma once

#include <systemd/sd-event.h>

#include <functional>
#include <memory>

#include "Platform/Linux/display/DisplayServer.h"

namespace norra::linux_desktop {

/// Opens the X server of the session with these listeners; null: none is reached.
using OpenXServer = std::function<std::unique_ptr<DisplayServer>(InputListeners listeners)>;

/// Takes a bounded time. `event` must outlive the result; `didLoseServer` is called at most once.
std::unique_ptr<DisplayServer> openWaylandDisplay(
    sd_event* event, const OpenXServer& openXServer, InputListeners listeners = {},
    std::function<void()> didLoseServer = [] {});

}  // namespace norra::linux_desktop
