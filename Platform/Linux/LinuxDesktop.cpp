#include "Platform/Linux/LinuxDesktop.h"

#include <utility>

#include "Platform/Linux/accessibility/AtspiAccessibility.h"
#include "Platform/Linux/display/AbsentDisplay.h"
#include "Platform/Linux/runtime/PlatformLogger.h"
#include "Platform/Linux/x11/X11EventTaps.h"
#include "Platform/Linux/x11/X11Windows.h"
#include "Platform/Linux/x11/X11Workspace.h"

namespace norra::linux_desktop {
namespace {

constexpr int statusWithoutServer = 1;

std::unique_ptr<X11Windows> newWindows() {
  auto connection = X11Connection::open();
  return connection ? std::make_unique<X11Windows>(std::move(connection)) : nullptr;
}

// Without the server that it watched nothing is left to watch: clients are better told by the service's end.
std::unique_ptr<Workspace> newWorkspace(EventLoop& loop, X11Windows* windows) {
  auto connection = windows != nullptr ? X11Connection::open() : nullptr;
  if (connection) {
    return std::make_unique<X11Workspace>(loop.event(), std::move(connection), *windows,
                                          [&loop] { loop.end(statusWithoutServer); });
  }
  return std::make_unique<AbsentWorkspace>(windowReadiness({}).advice);
}

std::unique_ptr<WindowsOnScreen> noWindowsBeside(const X11Windows* windows) {
  return windows != nullptr ? nullptr : std::make_unique<NoWindowsOnScreen>();
}

}  // namespace

std::unique_ptr<EventTaps> LinuxDesktop::newEventTaps(EventLoop& loop) {
  auto connection = X11Connection::open();
  if (!connection) return std::make_unique<AbsentEventTaps>(inputReadiness({}).advice);
  InputListeners listeners;
  listeners.isSecureInput = [this] { return accessibility_ && accessibility_->isSecretFocused(); };
  listeners.pressed = [this](std::optional<CGPoint> place) {
    if (windows_) windows_->notePress(place);
    if (accessibility_) accessibility_->notePress(place);
  };
  listeners.clickTimes = &loop.clickTimes();
  auto taps = X11EventTaps::open(loop.event(), std::move(connection), std::move(listeners));
  facts_.hasInput = taps != nullptr;
  if (taps) return taps;
  return std::make_unique<AbsentEventTaps>(inputReadiness(facts_).advice);
}

LinuxDesktop::LinuxDesktop(EventLoop& loop)
    : windows_(newWindows()),
      facts_{.isWayland = isWaylandSession(), .hasServer = windows_ != nullptr, .hasActiveWindow = true},
      workspace_(newWorkspace(loop, windows_.get())),  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): it is owned
      eventTaps_(newEventTaps(loop)),
      noWindows_(noWindowsBeside(windows_.get())),
      accessibility_(std::make_unique<AtspiAccessibility>(
          loop.event(), windows_ ? static_cast<WindowsOnScreen&>(*windows_) : *noWindows_, eventTaps())) {
  if (facts_.isWayland) platformLogger().error(displayReadiness(facts_).advice);
}

LinuxDesktop::~LinuxDesktop() = default;

Accessibility& LinuxDesktop::accessibility() { return *accessibility_; }

void LinuxDesktop::describe(ServiceStatistics& statistics) {
  facts_.hasWindowManager = windows_ && windows_->hasWindowManager();
  statistics.windows = windowReadiness(facts_).advice;
  statistics.input = inputReadiness(facts_).advice;
  accessibility_->describe(statistics);
}

}  // namespace norra::linux_desktop
