#include "Client/DesktopCheck.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "Client/ServiceCheck.h"
#include "Platform/Linux/atspi/AtspiBus.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/x11/X11EventTaps.h"
#include "Platform/Linux/x11/X11Windows.h"

namespace norra {
namespace {

using linux_desktop::AtspiBus;
using linux_desktop::EventLoop;
using linux_desktop::openSessionBus;
using linux_desktop::X11Connection;
using linux_desktop::X11EventTaps;
using linux_desktop::X11Windows;

DesktopFinding sessionBus(EventLoop& loop) {
  const auto opened = openSessionBus(loop.event(), "check");
  return opened.bus ? DesktopFinding{} : missing(opened.problem);
}

DesktopFinding display(EventLoop&) {
  const std::string logIn = "Log in to an X11 session.";
  const bool isReached = X11Connection::open() != nullptr;
  if (isWaylandSession()) {
    return isReached ? limited("This is a Wayland session: only windows of X11 applications are seen. " + logIn)
                     : missing("This is a Wayland session without an X server: no windows are seen. " + logIn);
  }
  return isReached ? DesktopFinding{}
                   : missing("No X server is reached. Run this inside an X11 session, with DISPLAY set.");
}

DesktopFinding input(EventLoop& loop) {
  auto connection = X11Connection::open();
  if (!connection) return missing("Clicks and keys cannot be observed without an X server.");
  if (X11EventTaps::open(loop.event(), std::move(connection))) return {};
  return missing("The X server has no XInput 2.2. Use a newer one.");
}

DesktopFinding activeWindow(EventLoop&) {
  auto connection = X11Connection::open();
  if (!connection) return missing("The application in front cannot be known without an X server.");
  X11Windows windows(std::move(connection));
  if (!windows.hasWindowManager()) {
    return limited("No window manager says which window is active; the input focus is taken instead. Start one.");
  }
  if (!windows.activeWindow()) return limited("No window is active now. Click into one.");
  return {};
}

DesktopFinding toolkits(EventLoop& loop) {
  const auto opened = openSessionBus(loop.event(), "check");
  if (!opened.bus) return missing(needsSessionBus);
  int isEnabled = 0;
  const int result = sd_bus_get_property_trivial(opened.bus.get(), "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Status",
                                                 "IsEnabled", nullptr, 'b', &isEnabled);
  if (result < 0) return missing("Whether applications can be read is not known: no accessibility bus answers.");
  if (isEnabled != 0) return {};
  return limited(
      "Accessibility is switched off; collection switches it on for as long as it runs. Start Qt applications and "
      "browsers after that, or switch it on for good: "
      "gsettings set org.gnome.desktop.interface toolkit-accessibility true");
}

struct Check {
  std::string_view what;
  DesktopFinding (*look)(EventLoop&);
};

constexpr std::array checks{Check{"session bus", sessionBus},
                            Check{"service", checkService},
                            Check{"display", display},
                            Check{"service's display", checkDisplayOfService},
                            Check{"clicks and keys", input},
                            Check{"window in front", activeWindow},
                            Check{"accessibility bus", checkAccessibilityBus},
                            Check{"applications speak", toolkits}};

std::string_view wordFor(Readiness readiness) {
  constexpr std::array words{"ready", "limited", "missing"};
  return words.at(static_cast<std::size_t>(readiness));
}

/// Filled up to a width.
std::string padded(std::string_view text, std::size_t width) {
  return std::string(text).append(width - std::min(width, text.size()), ' ');
}

}  // namespace

DesktopFinding checkAccessibilityBus(EventLoop& loop) {
  if (AtspiBus().connect()) return {};
  if (!openSessionBus(loop.event(), "check").bus) return missing(needsSessionBus);
  return missing("Applications cannot be read. Install at-spi2-core and start a new session.");
}

std::vector<DesktopFinding> checkDesktop(linux_desktop::EventLoop& loop) {
  const auto kept = X11Connection::open();  // a server that the last client leaves resets, and serves nobody meanwhile
  std::vector<DesktopFinding> findings;
  for (const auto& check : checks) {
    findings.push_back(check.look(loop));
    findings.back().what = check.what;
  }
  return findings;
}

std::string textOf(const std::vector<DesktopFinding>& findings) {
  std::string text;
  for (const auto& [what, readiness, advice] : findings) {
    text += padded(wordFor(readiness), 9) + (advice.empty() ? what : padded(what, 20) + advice) + "\n";
  }
  return text;
}

bool isReady(const std::vector<DesktopFinding>& findings) {
  return std::ranges::none_of(
      findings, [](auto readiness) { return readiness == Readiness::missing; }, &DesktopFinding::readiness);
}

}  // namespace norra
