// The desktop that is watched: its input, its windows and applications, its accessibility tree, each as far as it is
// there.
#pragma once

#include <memory>

#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "Platform/Accessibility.h"
#include "Platform/EventTap.h"
#include "Platform/Linux/DesktopReadiness.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

class X11Windows;

class AtspiAccessibility;

/// Main thread. What is missing is stood in for by an object that says so at its first use.
class LinuxDesktop {
 public:
  /// `loop` must outlive this.
  explicit LinuxDesktop(EventLoop& loop);
  ~LinuxDesktop();
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;

  Workspace& workspace() { return *workspace_; }
  EventTaps& eventTaps() { return *eventTaps_; }
  Accessibility& accessibility();

  /// Fills in what of it works, and what reading from applications has cost.
  void describe(ServiceStatistics& statistics);

 private:
  std::unique_ptr<EventTaps> newEventTaps(EventLoop& loop);

  std::unique_ptr<X11Windows> windows_;  // null: no X server
  DisplayFacts facts_;
  std::unique_ptr<Workspace> workspace_;
  std::unique_ptr<EventTaps> eventTaps_;
  std::unique_ptr<WindowsOnScreen> noWindows_;  // null: windows_ is there
  std::unique_ptr<AtspiAccessibility> accessibility_;
};

}  // namespace norra::linux_desktop
