#include "Platform/Linux/applications/RunningApplications.h"

#include <glib.h>

#include <array>
#include <utility>

#include "Platform/Linux/applications/ProcessFacts.h"

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
namespace fs = std::filesystem;

/// The browsers that the core knows by identifiers of their own, since they are slow to say what a click changed. The
/// one that they are made of is as slow.
constexpr std::array<std::pair<std::string_view, std::string_view>, 6> fixedIdentifiers{{
    {"chromium"sv, "com.google.Chrome"sv},
    {"google-chrome"sv, "com.google.Chrome"sv},
    {"microsoft-edge"sv, "com.microsoft.edgemac"sv},
    {"brave-browser"sv, "com.brave.Browser"sv},
    {"vivaldi-stable"sv, "com.vivaldi.Vivaldi"sv},
    {"opera"sv, "com.operasoftware.Opera"sv},
}};

std::string bundleIdentifierOf(const DesktopFile& file) {
  for (const auto& [name, identifier] : fixedIdentifiers) {
    if (name == file.identifier) return std::string(identifier);
  }
  return file.identifier;
}

std::optional<NSURL> fileURL(const std::optional<fs::path>& path) {
  if (!path) return std::nullopt;
  const std::unique_ptr<char, decltype(&g_free)> uri(g_filename_to_uri(path->c_str(), nullptr, nullptr), g_free);
  if (!uri) return std::nullopt;
  return NSURL{uri.get()};
}

// Who started an interpreter started its script.
std::optional<fs::path> startedFileOf(ProcessIdentifier process, const std::string& program) {
  auto executable = executableOf(process);
  if (!executable || !isInterpreter(executable->filename().string())) return executable;
  for (const auto& argument : argumentsOf(process)) {
    std::error_code error;
    const auto script = workingFolderOf(process) / argument;
    if (script.filename() == program && fs::is_regular_file(script, error)) return script.lexically_normal();
  }
  return executable;
}

// What an application calls its windows, where no desktop file says what it is called.
std::optional<std::string> nameWithoutFile(const ApplicationNames& names) {
  const auto& name = names.className.empty() ? names.program : names.className;
  if (name.empty()) return std::nullopt;
  return name;
}

ApplicationNames namesOf(const ApplicationWindow& window) {
  return {.instanceName = window.instanceName,
          .className = window.className,
          .gtkApplicationIdentifier = window.gtkApplicationIdentifier,
          .kdeDesktopFile = window.kdeDesktopFile,
          .sandboxIdentifier = sandboxIdentifierOf(window.process),
          .program = programOf(argumentsOf(window.process))};
}

}  // namespace

RunningApplications::RunningApplications(ApplicationWindows& windows, DesktopFiles& desktopFiles)
    : windows_(windows), desktopFiles_(desktopFiles) {}

std::optional<NSRunningApplication> RunningApplications::application(ProcessIdentifier process) {
  const auto startTime = startTimeOf(process);
  if (!startTime) return std::nullopt;
  const Basis basis{*startTime, argumentsOf(process), desktopFiles_.generation()};
  {
    const std::lock_guard lock(mutex_);
    const auto known = answers_.find(process);
    if (known != answers_.end() && known->second.basis == basis) return known->second.application;
  }
  ApplicationWindow withoutWindow;
  withoutWindow.process = process;
  const auto window = windows_.applicationOf(process);
  Answer answer{describe(window.value_or(withoutWindow)), basis};
  const std::lock_guard lock(mutex_);
  return answers_.insert_or_assign(process, std::move(answer)).first->second.application;
}

std::optional<NSRunningApplication> RunningApplications::applicationOf(const ApplicationWindow& window) {
  if (!startTimeOf(window.process)) return std::nullopt;
  return describe(window);
}

void RunningApplications::windowsDidChange() {
  const std::lock_guard lock(mutex_);
  answers_.clear();
}

NSRunningApplication RunningApplications::describe(const ApplicationWindow& window) {
  const auto names = namesOf(window);
  NSRunningApplication application{.processIdentifier = window.process,
                                   .bundleIdentifier = std::nullopt,
                                   .executableURL = fileURL(startedFileOf(window.process, names.program)),
                                   .localizedName = nameWithoutFile(names)};
  if (const auto file = desktopFiles_.find(names)) {
    application.bundleIdentifier = bundleIdentifierOf(*file);
    application.localizedName = file->name;
  }
  return application;
}

}  // namespace norra::linux_desktop
