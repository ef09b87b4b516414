#include "Client/ServiceCheck.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "Client/StatisticsView.h"
#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra {
namespace {

using linux_desktop::EventLoop;
using linux_desktop::isWaylandSession;
using linux_desktop::limited;
using linux_desktop::missing;
using linux_desktop::needsSessionBus;
using linux_desktop::openSessionBus;

/// Takes a list of texts that a function of libsystemd made.
std::vector<std::string> taken(char** texts) {
  std::vector<std::string> result;
  for (char** each = texts; each != nullptr && *each != nullptr; ++each) {
    result.emplace_back(*each);
    free(*each);
  }
  free(texts);
  return result;
}

struct Names {
  std::vector<std::string> owned, activatable;
};

Names namesOn(sd_bus* bus) {
  char** owned = nullptr;
  char** activatable = nullptr;
  sd_bus_list_names(bus, &owned, &activatable);
  return {taken(owned), taken(activatable)};
}

bool contains(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

/// Which display systemd would give to the service that it starts; empty: none.
std::string displayOfSystemd(sd_bus* bus, const std::string& name) {
  char** variables = nullptr;
  sd_bus_get_property_strv(bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                           "org.freedesktop.systemd1.Manager", "Environment", nullptr, &variables);
  for (const auto& variable : taken(variables)) {
    if (variable.starts_with(name + "=")) return variable.substr(name.size() + 1);
  }
  return {};
}

/// Without the screen's number.
std::string_view serverOf(std::string_view display) { return display.substr(0, display.find('.', display.rfind(':'))); }

DesktopFinding inputOfRunningService(EventLoop& loop) {
  const auto found = readStatistics(loop);
  const auto* statistics = std::get_if<ServiceStatistics>(&found);
  if (statistics == nullptr || statistics->input.empty()) return {};
  const auto advice = "Of the service that runs: " + statistics->input + ".";
  return isWaylandSession() ? limited(advice) : missing(advice);
}

DesktopFinding displayFromSystemd(sd_bus* bus) {
  const std::string name = isWaylandSession() ? "WAYLAND_DISPLAY" : "DISPLAY";
  const std::string import =
      ". In the desktop session run: dbus-update-activation-environment --systemd DISPLAY XAUTHORITY WAYLAND_DISPLAY";
  const char* display = std::getenv(name.c_str());
  const auto itsDisplay = displayOfSystemd(bus, name);
  if (itsDisplay.empty()) return missing("systemd would start the service without " + name + import);
  if (display == nullptr || serverOf(itsDisplay) == serverOf(display)) return {};
  return limited("systemd would start the service for " + name + "=" + itsDisplay + ", not " + display + import);
}

}  // namespace

DesktopFinding checkService(EventLoop& loop) {
  const auto opened = openSessionBus(loop.event(), "check");
  if (!opened.bus) return missing(needsSessionBus);
  const auto names = namesOn(opened.bus.get());
  if (contains(names.owned, busNames::service) || contains(names.activatable, busNames::service)) return {};
  return missing(
      "The session bus cannot start it. Install the package, or start norra-collector-service in this session.");
}

DesktopFinding checkDisplayOfService(EventLoop& loop) {
  const auto opened = openSessionBus(loop.event(), "check");
  if (!opened.bus) return missing(needsSessionBus);
  const auto names = namesOn(opened.bus.get()).owned;
  if (contains(names, busNames::service)) return inputOfRunningService(loop);
  return contains(names, "org.freedesktop.systemd1") ? displayFromSystemd(opened.bus.get()) : DesktopFinding{};
}

}  // namespace norra
