// The applications of a Wayland session.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Linux/applications/Activations.h"
#include "Platform/Linux/wayland/Compositor.h"
#include "Platform/Linux/wayland/WaylandWindows.h"

namespace norra::linux_desktop {

/// Whom a workspace hears of changes from; each may be null.
struct WindowSources {
  Compositor* compositor = nullptr;
  DisplayServer* xServer = nullptr;
  ActiveTopLevels* topLevels = nullptr;
};

/// Construction, destruction and registrations belong to the main thread; the look-ups may come from any thread. Nobody
/// is listened to while nobody listens to this.
class WaylandWorkspace final : public Workspace {
 public:
  /// All must outlive this.
  WaylandWorkspace(sd_event* event, WaylandWindows& windows, WindowSources sources)
      : sources_(sources), activations_(event, windows) {}

  std::optional<NSRunningApplication> frontmostApplication() const override { return activations_.frontmost(); }
  std::optional<NSRunningApplication> runningApplication(ProcessIdentifier process) const override {
    return activations_.application(process);
  }
  std::unique_ptr<Registration> onActivation(ActivationHandler handler) override;

 private:
  class Listening;
  class Handle;

  std::shared_ptr<Listening> listening();

  const WindowSources sources_;
  mutable Activations activations_;
  std::weak_ptr<Listening> listening_;  // while there are registrations
};

}  // namespace norra::linux_desktop
