// The applications of an X11 desktop, as its window manager tells which window is active.
#pragma once

#include <systemd/sd-event.h>

#include "Platform/Linux/applications/Activations.h"
#include "Platform/Linux/x11/X11EventSource.h"
#include "Platform/Linux/x11/X11Windows.h"

namespace norra::linux_desktop {

/// Construction, destruction and registrations belong to the main thread. The look-ups ask the system and the server
/// anew and may come from any thread.
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
  void handle(const xcb_generic_event_t& event);
  void handleRootProperty(xcb_atom_t property);
  void followWindowManager();
  void watchWindowManager();

  X11Windows& windows_;
  const std::unique_ptr<X11Connection> connection_;
  mutable Activations activations_;
  bool hasWindowManager_ = true;  // main thread only
  X11EventSource source_;
};

}  // namespace norra::linux_desktop
