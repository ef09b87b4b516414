// Processes as applications: which desktop file describes each.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Platform/Linux/applications/DesktopFiles.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

/// Remembers each answer until the windows or the desktop files change, or the process ends or runs another program
/// (as a launcher does that becomes what it starts). Any thread.
class RunningApplications {
 public:
  /// Not owned.
  RunningApplications(ApplicationWindows& windows, DesktopFiles& desktopFiles);

  /// Nothing: no such process.
  std::optional<NSRunningApplication> application(ProcessIdentifier process);
  /// The application of a window. Nothing: its process is not known.
  std::optional<NSRunningApplication> applicationOf(const ApplicationWindow& window);

  /// Forgets all answers.
  void windowsDidChange();

 private:
  /// What an answer holds for.
  struct Basis {
    std::uint64_t startTime = 0;
    std::vector<std::string> arguments;
    std::uint64_t desktopFiles = 0;  // their generation

    bool operator==(const Basis&) const = default;
  };
  struct Answer {
    NSRunningApplication application;
    Basis basis;
  };

  NSRunningApplication describe(const ApplicationWindow& window);

  ApplicationWindows& windows_;
  DesktopFiles& desktopFiles_;
  std::mutex mutex_;
  std::unordered_map<ProcessIdentifier, Answer> answers_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
