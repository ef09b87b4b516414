// The X server of a desktop.
#pragma once

#include <systemd/sd-event.h>

#include <memory>

#include "Platform/Linux/display/DisplayServer.h"

namespace norra::linux_desktop {

/// Null: none is reached. Takes a bounded time. `event` must outlive the result; `didLoseServer` is called at most
/// once, and only after workspace().
std::unique_ptr<DisplayServer> openX11Display(
    sd_event* event, InputListeners listeners = {}, std::function<void()> didLoseServer = [] {});

}  // namespace norra::linux_desktop
