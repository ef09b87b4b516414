// The applications of an X11 desktop, as its window manager tells which window is active.
#pragma once

#include <systemd/sd-event.h>

#include <map>
#include <set>

#include "Platform/Linux/applications/RunningApplications.h"
#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/x11/X11EventSource.h"
#include "Platform/Linux/x11/X11Windows.h"

namespace norra::linux_desktop {

/// Construction, destruction and registrations belong to the main thread. The look-ups ask the system and the server
/// anew and may come from any thread.
///
/// A window that is in front for the first time may have no title yet, or one that says that it is loading. Its
/// activation is told when its title has stood for a moment, at the latest after a second, or when another window comes
/// to the front. Whoever acts in it until then tells of it by that.
///
/// Says in the log when no window manager is there, and when one has come back. Until then the application in front is
/// the one that has the input focus, and no activation is noticed.
class X11Workspace final : public Workspace {
 public:
  /// `event` and `windows` are not owned. The connection must have no other user of its events. `didLoseServer` is
  /// called at most once, on the main thread.
  X11Workspace(
      sd_event* event, std::unique_ptr<X11Connection> connection, X11Windows& windows,
      std::function<void()> didLoseServer = [] {});

  std::optional<NSRunningApplication> frontmostApplication() const override;
  std::optional<NSRunningApplication> runningApplication(ProcessIdentifier process) const override;
  std::unique_ptr<Registration> onActivation(ActivationHandler handler) override;

 private:
  using Handlers = std::map<std::uint64_t, ActivationHandler>;
  class ActivationRegistration;

  // A window's number is given to another window when the process that had it has gone.
  struct ActiveWindow {
    xcb_window_t window = XCB_NONE;
    ProcessIdentifier process = 0;
    auto operator<=>(const ActiveWindow&) const = default;
  };

  void handle(const xcb_generic_event_t& event);
  void handleRootProperty(xcb_atom_t property);
  void followWindowManager();
  void watchWindowManager();
  void activeWindowDidChange();
  void hold(const ApplicationWindow& window);
  void checkTitle();
  void reportHeld();
  void report(const std::optional<NSRunningApplication>& application);

  X11Windows& windows_;
  const std::unique_ptr<X11Connection> connection_;
  mutable DesktopFiles desktopFiles_{DesktopFiles::foldersOfEnvironment()};
  mutable RunningApplications applications_{windows_, desktopFiles_};

  // A window whose activation was not told yet.
  struct Held {
    ApplicationWindow window;
    std::string title;
    int checksLeft = 0;
  };

  // Main thread only.
  bool hasWindowManager_ = true;
  ActiveWindow active_;
  std::set<ActiveWindow> known_;
  std::optional<Held> held_;
  DeferredRun titleCheck_;
  std::uint64_t nextHandler_ = 0;
  const std::shared_ptr<Handlers> handlers_ = std::make_shared<Handlers>();
  X11EventSource source_;
};

}  // namespace norra::linux_desktop
