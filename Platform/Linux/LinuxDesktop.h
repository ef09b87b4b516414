// The desktop that is watched: its input, its windows and applications, its accessibility tree, each as far as it is
// there.
#pragma once

#include <memory>

#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "Platform/Accessibility.h"
#include "Platform/EventTap.h"
#include "Platform/Linux/display/DisplayServer.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

class AtspiAccessibility;

/// Main thread. What is missing is stood in for by an object that says so at its first use.
class LinuxDesktop {
 public:
  /// `loop` must outlive this. `rehearsals` as for LinuxPlatform.
  LinuxDesktop(EventLoop& loop, Rehearsals rehearsals);
  ~LinuxDesktop();
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;

  Workspace& workspace();
  EventTaps& eventTaps();
  Accessibility& accessibility();

  /// Fills in what of it works, and what reading from applications has cost.
  void describe(ServiceStatistics& statistics);

 private:
  InputListeners listeners(EventLoop& loop);
  DisplayFacts facts() const;

  const std::unique_ptr<DisplayServer> display_;  // null: none is reached
  NoWindowsOnScreen noWindows_;
  AbsentWorkspace absentWorkspace_;
  AbsentEventTaps absentEventTaps_;
  std::unique_ptr<AtspiAccessibility> accessibility_;
};

}  // namespace norra::linux_desktop
