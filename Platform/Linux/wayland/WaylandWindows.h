// The windows of a Wayland session: those that the compositor tells of, as far as it does, those of the X server
// beside it, and what applications say of themselves on the accessibility bus.
#pragma once

#include "Platform/Linux/display/DisplayServer.h"
#include "Platform/Linux/wayland/Compositor.h"

namespace norra::linux_desktop {

/// Any thread.
class WaylandWindows final : public WindowsOnScreen, public ApplicationWindows {
 public:
  /// Both may be null, and must outlive this.
  WaylandWindows(Compositor* compositor, DisplayServer* xServer) : compositor_(compositor), xServer_(xServer) {}

  /// To be called before anything else; it must outlive all calls.
  void use(ActiveTopLevels& topLevels) { topLevels_ = &topLevels; }

  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint point) override;
  void notePress(std::optional<CGPoint> place) override;
  std::optional<WindowOnScreen> activeWindow() override;
  bool isAllInputSeen() const override { return false; }

  std::optional<FrontWindow> front() override;
  std::optional<ApplicationWindow> applicationOf(ProcessIdentifier process) override;

 private:
  std::optional<WindowOnScreen> activeX11Window();
  bool isCompositorTelling();
  std::optional<ActiveTopLevel> activeTopLevel();

  Compositor* const compositor_;
  DisplayServer* const xServer_;
  ActiveTopLevels* topLevels_ = nullptr;
};

}  // namespace norra::linux_desktop
