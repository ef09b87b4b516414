// What a desktop is ready for, decided and put into words in one place: for the log and the statistics of the service,
// and for whoever asks before.
#pragma once

#include <systemd/sd-event.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "Platform/Linux/display/DisplayServer.h"

namespace norra::linux_desktop {

enum class Readiness {
  ready,
  limited,  // works in part
  missing,
};

/// Ready, unless made otherwise.
struct DesktopFinding {
  std::string what = {};
  Readiness readiness = Readiness::ready;
  /// What is wrong and what to do about it; empty where it is ready.
  std::string advice = {};
};

inline DesktopFinding missing(std::string advice) { return {{}, Readiness::missing, std::move(advice)}; }
inline DesktopFinding limited(std::string advice) { return {{}, Readiness::limited, std::move(advice)}; }

inline constexpr const char* needsSessionBus = "This cannot be known without the session bus.";

/// Of this process: whether there may be windows that an X server does not know.
bool isWaylandSession();

/// The display server of this session; null: none is reached. Takes a bounded time. `event` must outlive the result;
/// `didLoseServer` is called at most once.
std::unique_ptr<DisplayServer> openDisplay(
    sd_event* event, InputListeners listeners = {}, std::function<void()> didLoseServer = [] {});

/// What the decisions rest on. Connects to the display server. Main thread; takes a bounded time.
DisplayFacts lookAtDisplay(sd_event* event);

DesktopFinding displayReadiness(const DisplayFacts& facts);
/// Clicks and keys.
DesktopFinding inputReadiness(const DisplayFacts& facts);
/// The window and the application in front.
DesktopFinding windowReadiness(const DisplayFacts& facts);

/// Whether the elements of applications can be read. Takes a bounded time. Main thread.
DesktopFinding accessibilityReadiness(sd_event* event);
/// Whether applications that start speak on the accessibility bus. Takes a bounded time. Main thread.
DesktopFinding toolkitReadiness(sd_event* event);

}  // namespace norra::linux_desktop
