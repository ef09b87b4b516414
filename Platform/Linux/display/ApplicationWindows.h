// What the windows of a display server tell of the applications that they belong to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

/// What one window tells of its application; what it does not tell is empty.
struct ApplicationWindow {
  std::uint32_t window = 0;
  /// 0 where neither the display server nor the window knows a process of this machine.
  ProcessIdentifier process = 0;
  /// The instance's and the class's name, as WM_CLASS has them.
  std::string instanceName;
  std::string className;
  /// The names that GTK and KDE give their windows.
  std::string gtkApplicationIdentifier;
  std::string kdeDesktopFile;
};

/// Any thread; every answer comes within a bound.
class ApplicationWindows {
 public:
  virtual ~ApplicationWindows() = default;
  /// Of the process's active window, else of its topmost one. Nothing: it has no window.
  virtual std::optional<ApplicationWindow> applicationOf(ProcessIdentifier process) = 0;
};

}  // namespace norra::linux_desktop
