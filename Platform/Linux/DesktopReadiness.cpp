#include "Platform/Linux/DesktopReadiness.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include "Platform/Linux/atspi/AtspiBus.h"
#include "Platform/Linux/wayland/WaylandDisplay.h"
#include "Platform/Linux/x11/X11Display.h"

namespace norra::linux_desktop {
namespace {

std::string_view environment(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

constexpr const char* noServer = "No X server is reached. Run this inside an X11 session, with DISPLAY set.";
constexpr const char* noCompositor =
    "The compositor of this Wayland session is not reached. Run this inside the session, with WAYLAND_DISPLAY set.";
constexpr const char* noServerForInput =
    "No X server: clicks and keys are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* noServerForWindows =
    "No X server: application switches are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* oldServer =
    "The X server has no XInput 2.2: clicks and keys are not seen. Start a newer X server";
constexpr const char* waylandInput =
    "This is a Wayland session: clicks and keys are seen in X11 applications only; of others it is seen what they "
    "change. See README.Debian for how to let this user read the input devices, or log in to an X11 session";
constexpr const char* waylandWithoutInput =
    "This is a Wayland session: clicks and keys are not seen, only what they change. See README.Debian for how to let "
    "this user read the input devices, or log in to an X11 session";
constexpr const char* waylandWithoutPointer =
    "This is a Wayland session whose compositor does not say where the pointer is: keys are seen, and clicks in X11 "
    "applications only; of others it is seen what they change. Log in to an X11 session to see them";
constexpr const char* gnomeWithoutExtension =
    "GNOME Shell says of clicks nothing without the extension that comes with this: gnome-extensions enable "
    "collector@norra.com, once, after a new log-in. Without it clicks are seen in X11 applications only; of others it "
    "is seen what they change";
constexpr const char* gnomeWithoutKeys =
    "This is a Wayland session: clicks are seen, keys in X11 applications only. See README.Debian for how to let this "
    "user read the input devices, or log in to an X11 session";
constexpr const char* noWindowManager =
    "No window manager tells which window is active: application switches are not seen. Start a window manager such as "
    "openbox";
constexpr const char* noActiveWindow = "No window is active now. Click into one.";
constexpr const char* noAccessibility = "Applications cannot be read. Install at-spi2-core and start a new session.";
constexpr const char* unknownSwitch = "Whether applications can be read is not known: no accessibility bus answers.";
constexpr const char* switchedOff =
    "Accessibility is switched off; collection switches it on for as long as it runs. Start Qt applications and "
    "browsers after that, or switch it on for good: "
    "gsettings set org.gnome.desktop.interface toolkit-accessibility true";

DesktopFinding inputReadinessOfWayland(const DisplayFacts& facts) {
  if (facts.hasButtons) return facts.hasDevices ? DesktopFinding{} : limited(gnomeWithoutKeys);
  if (facts.mayHaveButtons)
    return facts.hasDevices || facts.hasInput ? limited(gnomeWithoutExtension) : missing(gnomeWithoutExtension);
  if (!facts.hasDevices) return facts.hasInput ? limited(waylandInput) : missing(waylandWithoutInput);
  return facts.hasPointer ? DesktopFinding{} : limited(waylandWithoutPointer);
}

}  // namespace

bool isWaylandSession() {
  return !environment("WAYLAND_DISPLAY").empty() || environment("XDG_SESSION_TYPE") == "wayland";
}

std::unique_ptr<DisplayServer> openDisplay(sd_event* event, InputListeners listeners,
                                           std::function<void()> didLoseServer) {
  if (!isWaylandSession()) return openX11Display(event, std::move(listeners), std::move(didLoseServer));
  // One that ends with its last application.
  const auto openXServer = [event](InputListeners ofX11) { return openX11Display(event, std::move(ofX11)); };
  return openWaylandDisplay(event, openXServer, std::move(listeners), std::move(didLoseServer));
}

DisplayFacts lookAtDisplay(sd_event* event) {
  const auto display = openDisplay(event);
  return display ? display->facts() : DisplayFacts{};
}

DesktopFinding displayReadiness(const DisplayFacts& facts) {
  if (facts.hasServer) return {};
  return missing(facts.isWayland ? noCompositor : noServer);
}

DesktopFinding inputReadiness(const DisplayFacts& facts) {
  if (facts.isWayland) return inputReadinessOfWayland(facts);
  if (!facts.hasServer) return missing(noServerForInput);
  return facts.hasInput ? DesktopFinding{} : missing(oldServer);
}

// Under Wayland the accessibility bus knows of windows what the compositor does not tell.
DesktopFinding windowReadiness(const DisplayFacts& facts) {
  if (facts.isWayland) return {};
  if (!facts.hasServer) return missing(noServerForWindows);
  if (!facts.hasWindowManager) return limited(noWindowManager);
  return facts.hasActiveWindow ? DesktopFinding{} : limited(noActiveWindow);
}

DesktopFinding accessibilityReadiness(sd_event* event) {
  if (AtspiBus().connect()) return {};
  return missing(openSessionBus(event, "check").bus ? noAccessibility : needsSessionBus);
}

DesktopFinding toolkitReadiness(sd_event* event) {
  const auto opened = openSessionBus(event, "check");
  if (!opened.bus) return missing(needsSessionBus);
  int isEnabled = 0;
  const int result = sd_bus_get_property_trivial(opened.bus.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Status",
                                                 "IsEnabled", nullptr, 'b', &isEnabled);
  if (result < 0) return missing(unknownSwitch);
  return isEnabled != 0 ? DesktopFinding{} : limited(switchedOff);
}

}  // namespace norra::linux_desktop
