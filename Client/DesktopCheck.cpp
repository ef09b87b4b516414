#include "Client/DesktopCheck.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/AtspiBus.h"
#include "Platform/Linux/SessionBus.h"
#include "Platform/Linux/X11EventTaps.h"
#include "Platform/Linux/X11Windows.h"

namespace norra {
namespace {

using linux_desktop::AtspiBus;
using linux_desktop::openSessionBus;
using linux_desktop::X11Connection;
using linux_desktop::X11EventTaps;
using linux_desktop::X11Windows;

DesktopFinding missing(std::string advice) { return {{}, Readiness::missing, std::move(advice)}; }
DesktopFinding limited(std::string advice) { return {{}, Readiness::limited, std::move(advice)}; }

bool isOwnedOrActivatable(sd_bus* bus, std::string_view name) {
  char** owned = nullptr;
  char** activatable = nullptr;
  sd_bus_list_names(bus, &owned, &activatable);
  bool isFound = false;
  for (char** names : {owned, activatable}) {
    for (char** each = names; each != nullptr && *each != nullptr; ++each) {
      isFound = isFound || name == *each;
      free(*each);
    }
    free(names);
  }
  return isFound;
}

DesktopFinding sessionBus(sd_event* event) {
  const auto opened = openSessionBus(event, "check");
  return opened.bus ? DesktopFinding{} : missing(opened.problem);
}

DesktopFinding service(sd_event* event) {
  const auto opened = openSessionBus(event, "check");
  if (opened.bus && isOwnedOrActivatable(opened.bus.get(), busNames::service)) return {};
  return missing(
      "The session bus cannot start it. Install the package, or start norra-collector-service in this session.");
}

DesktopFinding display(sd_event*) {
  const auto* type = std::getenv("XDG_SESSION_TYPE");
  const bool isWayland =
      std::getenv("WAYLAND_DISPLAY") != nullptr || (type != nullptr && type == std::string_view("wayland"));
  if (!X11Connection::open())
    return missing("No X server is reached. Run this inside an X11 session, with DISPLAY set.");
  if (isWayland) {
    return limited("This is a Wayland session: only windows of X11 applications are seen. Log in to an X11 session.");
  }
  return {};
}

DesktopFinding input(sd_event* event) {
  auto connection = X11Connection::open();
  if (!connection) return missing("Clicks and keys cannot be observed without an X server.");
  if (X11EventTaps::open(event, std::move(connection))) return {};
  return missing("The X server has no XInput 2.2. Use a newer one.");
}

DesktopFinding activeWindow(sd_event*) {
  auto connection = X11Connection::open();
  if (!connection) return missing("The application in front cannot be known without an X server.");
  X11Windows windows(std::move(connection));
  if (!windows.hasWindowManager()) {
    return limited("No window manager says which window is active; the input focus is taken instead. Start one.");
  }
  if (!windows.activeWindow()) return limited("No window is active now. Click into one.");
  return {};
}

DesktopFinding accessibilityBus(sd_event*) {
  if (AtspiBus().connect()) return {};
  return missing("Applications cannot be read. Install at-spi2-core and start a new session.");
}

DesktopFinding toolkits(sd_event* event) {
  const auto opened = openSessionBus(event, "check");
  int isEnabled = 0;
  const int result = !opened.bus
                         ? -ENOTCONN
                         : sd_bus_get_property_trivial(opened.bus.get(), "org.a11y.Bus", "/org/a11y/bus",
                                                       "org.a11y.Status", "IsEnabled", nullptr, 'b', &isEnabled);
  if (result < 0) return missing("Whether applications can be read is not known: no accessibility bus answers.");
  if (isEnabled != 0) return {};
  return limited(
      "Accessibility is switched off; collection switches it on for as long as it runs. Start Qt applications and "
      "browsers after that, or switch it on for good: "
      "gsettings set org.gnome.desktop.interface toolkit-accessibility true");
}

struct Check {
  std::string_view what;
  DesktopFinding (*look)(sd_event*);
};

constexpr std::array checks{Check{"session bus", sessionBus},
                            Check{"service", service},
                            Check{"display", display},
                            Check{"clicks and keys", input},
                            Check{"window in front", activeWindow},
                            Check{"accessibility bus", accessibilityBus},
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

std::vector<DesktopFinding> checkDesktop(linux_desktop::EventLoop& loop) {
  std::vector<DesktopFinding> findings;
  for (const auto& check : checks) {
    findings.push_back(check.look(loop.event()));
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
