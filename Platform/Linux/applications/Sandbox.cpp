#include "Platform/Linux/applications/Sandbox.h"

#include <fstream>
#include <iterator>

namespace norra::linux_desktop {
namespace {

constexpr std::string_view proxyName = "xdg-dbus-proxy";

std::string fileOf(ProcessIdentifier process, const char* name) {
  std::ifstream file("/proc/" + std::to_string(process) + "/" + name);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

std::optional<std::string> sandboxedApplication(std::string_view controlGroups) {
  constexpr std::string_view prefix = "/app-flatpak-";
  const auto begin = controlGroups.find(prefix);
  if (begin == std::string_view::npos) return std::nullopt;
  const auto scope = controlGroups.substr(begin + prefix.size());
  const auto end = scope.find(".scope");
  const auto number = scope.substr(0, end).rfind('-');
  if (end == std::string_view::npos || number == std::string_view::npos || number == 0) return std::nullopt;
  return std::string(scope.substr(0, number));
}

bool isSandboxOf(ProcessIdentifier peer, ProcessIdentifier process) {
  if (!fileOf(peer, "comm").starts_with(proxyName)) return false;
  const auto application = sandboxedApplication(fileOf(peer, "cgroup"));
  return application && application == sandboxedApplication(fileOf(process, "cgroup"));
}

}  // namespace norra::linux_desktop
