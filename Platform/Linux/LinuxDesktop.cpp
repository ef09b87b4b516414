#include "Platform/Linux/LinuxDesktop.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include "Platform/Linux/AbsentDesktop.h"
#include "Platform/Linux/AtspiAccessibility.h"
#include "Platform/Linux/PlatformLogger.h"
#include "Platform/Linux/X11EventTaps.h"
#include "Platform/Linux/X11Windows.h"
#include "Platform/Linux/X11Workspace.h"

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
  return std::make_unique<AbsentWorkspace>(
      "No X server: application switches are not seen. Start the service in a desktop session, with DISPLAY set");
}

std::unique_ptr<EventTaps> newEventTaps(sd_event* event, SecureInput isSecretFocused, X11Windows* windows) {
  auto connection = X11Connection::open();
  if (!connection) {
    return std::make_unique<AbsentEventTaps>(
        "No X server: clicks and keys are not seen. Start the service in a desktop session, with DISPLAY set");
  }
  const auto pressed = [windows](std::optional<CGPoint> place) {
    if (windows != nullptr) windows->noteRightPress(place);
  };
  auto taps = X11EventTaps::open(event, std::move(connection), std::move(isSecretFocused), pressed);
  if (taps) return taps;
  return std::make_unique<AbsentEventTaps>(
      "The X server has no XInput 2.2: clicks and keys are not seen. Start a newer X server");
}

bool isSet(const char* variable) {
  const auto* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

void reportWayland() {
  const auto* type = std::getenv("XDG_SESSION_TYPE");
  if (!isSet("WAYLAND_DISPLAY") && (type == nullptr || std::string_view(type) != "wayland")) return;
  platformLogger().error(
      "This is a Wayland session: switches to, and clicks and keys in, windows that are not of X11 are not seen. "
      "Log in to an X11 session to see them");
}

std::unique_ptr<WindowsOnScreen> noWindowsBeside(const X11Windows* windows) {
  return windows != nullptr ? nullptr : std::make_unique<NoWindowsOnScreen>();
}

}  // namespace

LinuxDesktop::LinuxDesktop(EventLoop& loop)
    : windows_(newWindows()),
      workspace_(newWorkspace(loop, windows_.get())),
      eventTaps_(newEventTaps(
          loop.event(), [this] { return accessibility_ && accessibility_->isSecretFocused(); }, windows_.get())),
      noWindows_(noWindowsBeside(windows_.get())),
      accessibility_(std::make_unique<AtspiAccessibility>(
          loop.event(), windows_ ? static_cast<WindowsOnScreen&>(*windows_) : *noWindows_, *eventTaps_)) {
  reportWayland();
}

LinuxDesktop::~LinuxDesktop() = default;

Accessibility& LinuxDesktop::accessibility() { return *accessibility_; }

}  // namespace norra::linux_desktop
