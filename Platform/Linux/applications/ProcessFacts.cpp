#include "Platform/Linux/applications/ProcessFacts.h"

#include <glib.h>

#include <charconv>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string_view>

namespace norra::linux_desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view proxyName = "xdg-dbus-proxy";

fs::path folderOf(ProcessIdentifier process) { return fs::path("/proc") / std::to_string(process); }

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string flatpakIdentifierOf(ProcessIdentifier process) {
  const std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)> info(g_key_file_new(), g_key_file_unref);
  const auto path = folderOf(process) / "root/.flatpak-info";
  if (g_key_file_load_from_file(info.get(), path.c_str(), G_KEY_FILE_NONE, nullptr) == 0) return {};
  const std::unique_ptr<char, decltype(&g_free)> name(g_key_file_get_string(info.get(), "Application", "name", nullptr),
                                                      g_free);
  return name ? name.get() : std::string();
}

// "0::/user.slice/.../snap.NAME.APP-UUID.scope" is the application NAME_APP.
std::string snapIdentifierOf(ProcessIdentifier process) {
  constexpr std::string_view mark = "/snap.";
  const auto groups = contentOf(folderOf(process) / "cgroup");
  const auto begin = groups.find(mark);
  if (begin == std::string::npos) return {};
  std::istringstream rest(groups.substr(begin + mark.size()));
  std::string package;
  std::string application;
  std::getline(rest, package, '.');
  std::getline(rest, application, '.');
  constexpr std::size_t lengthOfUUID = 37;  // with its hyphen
  if (application.size() > lengthOfUUID) application.resize(application.size() - lengthOfUUID);
  return package + "_" + application;
}

// Nobody has asked yet how it ended.
bool hasEnded(const std::string& state) { return state == "Z" || state == "X"; }

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
  if (!contentOf(folderOf(peer) / "comm").starts_with(proxyName)) return false;
  const auto application = sandboxedApplication(contentOf(folderOf(peer) / "cgroup"));
  return application && application == sandboxedApplication(contentOf(folderOf(process) / "cgroup"));
}

std::optional<std::uint64_t> startTimeOf(ProcessIdentifier process) {
  if (process <= 0) return std::nullopt;
  const auto status = contentOf(folderOf(process) / "stat");
  // The program's name, in brackets, may hold anything; behind it the state is the first word, the start time the
  // twentieth.
  const auto end = status.rfind(')');
  if (end == std::string::npos) return std::nullopt;
  std::istringstream rest(status.substr(end + 1));
  const std::vector<std::string> words{std::istream_iterator<std::string>(rest), {}};
  if (words.size() < 20 || hasEnded(words.front())) return std::nullopt;
  std::uint64_t time = 0;
  std::from_chars(words[19].data(), words[19].data() + words[19].size(), time);
  return time;
}

std::optional<fs::path> executableOf(ProcessIdentifier process) {
  constexpr std::string_view mark = " (deleted)";
  std::error_code error;
  auto path = fs::read_symlink(folderOf(process) / "exe", error).string();
  if (error || path.empty()) return std::nullopt;
  if (path.ends_with(mark)) path.resize(path.size() - mark.size());
  return path;
}

fs::path workingFolderOf(ProcessIdentifier process) {
  std::error_code error;
  return fs::read_symlink(folderOf(process) / "cwd", error);
}

std::vector<std::string> argumentsOf(ProcessIdentifier process) {
  std::istringstream commandLine(contentOf(folderOf(process) / "cmdline"));
  std::vector<std::string> arguments;
  for (std::string argument; std::getline(commandLine, argument, '\0');) arguments.push_back(argument);
  return arguments;
}

std::string sandboxIdentifierOf(ProcessIdentifier process) {
  const auto flatpak = flatpakIdentifierOf(process);
  return flatpak.empty() ? snapIdentifierOf(process) : flatpak;
}

}  // namespace norra::linux_desktop
