#include "Platform/Linux/LinuxDesktop.h"

#include <cstdlib>
#include <string_view>
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

constexpr const char* noServerForWorkspace =
    "No X server: application switches are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* noServerForInput =
    "No X server: clicks and keys are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* oldServer =
    "The X server has no XInput 2.2: clicks and keys are not seen. Start a newer X server";
constexpr const char* noWindowManager =
    "No window manager tells which window is active: application switches are not seen. Start a window manager such as "
    "openbox";
constexpr const char* wayland =
    "This is a Wayland session: switches to, and clicks and keys in, windows that are not of X11 are not seen. "
    "Log in to an X11 session to see them";

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
  return std::make_unique<AbsentWorkspace>(noServerForWorkspace);
}

bool isSet(const char* variable) {
  const auto* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

std::string waylandProblem() {
  const auto* type = std::getenv("XDG_SESSION_TYPE");
  const bool isWayland = isSet("WAYLAND_DISPLAY") || (type != nullptr && std::string_view(type) == "wayland");
  return isWayland ? wayland : "";
}

std::unique_ptr<WindowsOnScreen> noWindowsBeside(const X11Windows* windows) {
  return windows != nullptr ? nullptr : std::make_unique<NoWindowsOnScreen>();
}

}  // namespace

LinuxDesktop::OfferedTaps LinuxDesktop::offerEventTaps(EventLoop& loop) {
  const auto absent = [](const char* problem) {
    return OfferedTaps{std::make_unique<AbsentEventTaps>(problem), problem};
  };
  auto connection = X11Connection::open();
  if (!connection) return absent(noServerForInput);
  InputListeners listeners;
  listeners.isSecureInput = [this] { return accessibility_ && accessibility_->isSecretFocused(); };
  listeners.pressed = [this](std::optional<CGPoint> place) {
    if (windows_) windows_->notePress(place);
    if (accessibility_) accessibility_->notePress(place);
  };
  listeners.clickTimes = &loop.clickTimes();
  auto taps = X11EventTaps::open(loop.event(), std::move(connection), std::move(listeners));
  return taps ? OfferedTaps{std::move(taps), {}} : absent(oldServer);
}

LinuxDesktop::LinuxDesktop(EventLoop& loop)
    : sessionProblem_(waylandProblem()),
      windows_(newWindows()),
      workspace_(newWorkspace(loop, windows_.get())),  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): it is owned
      eventTaps_(offerEventTaps(loop)),
      noWindows_(noWindowsBeside(windows_.get())),
      accessibility_(std::make_unique<AtspiAccessibility>(
          loop.event(), windows_ ? static_cast<WindowsOnScreen&>(*windows_) : *noWindows_, eventTaps())) {
  if (!sessionProblem_.empty()) platformLogger().error(sessionProblem_);
}

LinuxDesktop::~LinuxDesktop() = default;

Accessibility& LinuxDesktop::accessibility() { return *accessibility_; }

void LinuxDesktop::describe(ServiceStatistics& statistics) {
  statistics.windows = windowsProblem();
  statistics.input = eventTaps_.problem.empty() ? sessionProblem_ : eventTaps_.problem;
  accessibility_->describe(statistics);
}

std::string LinuxDesktop::windowsProblem() {
  if (!windows_) return noServerForWorkspace;
  return windows_->hasWindowManager() ? sessionProblem_ : noWindowManager;
}

}  // namespace norra::linux_desktop
