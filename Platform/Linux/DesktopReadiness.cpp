#include "Platform/Linux/DesktopReadiness.h"

#include <cstdlib>
#include <string_view>

#include "Platform/Linux/atspi/AtspiBus.h"
#include "Platform/Linux/x11/X11Display.h"

namespace norra::linux_desktop {
namespace {

std::string_view environment(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

constexpr const char* waylandOnly =
    "This is a Wayland session without an X server: no windows are seen. Log in to an X11 session.";
constexpr const char* noServer = "No X server is reached. Run this inside an X11 session, with DISPLAY set.";
constexpr const char* waylandDisplay =
    "This is a Wayland session: only windows of X11 applications are seen. Log in to an X11 session.";
constexpr const char* noServerForInput =
    "No X server: clicks and keys are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* noServerForWindows =
    "No X server: application switches are not seen. Start the service in a desktop session, with DISPLAY set";
constexpr const char* oldServer =
    "The X server has no XInput 2.2: clicks and keys are not seen. Start a newer X server";
constexpr const char* waylandInput =
    "This is a Wayland session: clicks and keys in windows that are not of X11 are not seen. Log in to an X11 session";
constexpr const char* waylandWindows =
    "This is a Wayland session: switches to windows that are not of X11 are not seen. Log in to an X11 session";
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

}  // namespace

bool isWaylandSession() {
  return !environment("WAYLAND_DISPLAY").empty() || environment("XDG_SESSION_TYPE") == "wayland";
}

DisplayFacts lookAtDisplay(sd_event* event) {
  const auto display = openX11Display(event);
  auto facts = display ? display->facts() : DisplayFacts{};
  facts.isWayland = isWaylandSession();
  return facts;
}

DesktopFinding displayReadiness(const DisplayFacts& facts) {
  if (!facts.hasServer) return missing(facts.isWayland ? waylandOnly : noServer);
  return facts.isWayland ? limited(waylandDisplay) : DesktopFinding{};
}

DesktopFinding inputReadiness(const DisplayFacts& facts) {
  if (!facts.hasServer) return missing(noServerForInput);
  if (!facts.hasInput) return missing(oldServer);
  return facts.isWayland ? limited(waylandInput) : DesktopFinding{};
}

DesktopFinding windowReadiness(const DisplayFacts& facts) {
  if (!facts.hasServer) return missing(noServerForWindows);
  if (facts.isWayland) return limited(waylandWindows);
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
