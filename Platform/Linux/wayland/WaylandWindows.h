// The windows of a Wayland session: those that the compositor tells of, as far as it does, those of the X server
// beside it, and what applications say of themselves on the accessibility bus.
#pragma once

#include <atomic>
#include <mutex>

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

  /// Whose input is told next: that of the X server, or that of the devices.
  void setInputOfX11(bool isOfX11) { isInputOfX11_ = isOfX11; }
  /// Where the pointer is, and whose window there is; nothing: it is not known.
  std::optional<PointedWindow> pointed();
  /// As for Compositor.
  void whenPointerIsTold(std::function<void()> then);
  /// Whether the X server hears of keys.
  bool isX11InFront();

  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint point) override;
  CGPoint inApplication(CGPoint point) override;
  void notePress(std::optional<CGPoint> place) override;
  std::optional<WindowOnScreen> activeWindow() override;
  bool isAllInputSeen() const override { return areDevicesRead_ && compositor_ && compositor_->tellsPointer(); }
  void setDevicesRead(bool areRead) { areDevicesRead_ = areRead; }

  std::optional<FrontWindow> front() override;
  std::optional<ApplicationWindow> applicationOf(ProcessIdentifier process) override;

 private:
  std::optional<WindowOnScreen> activeX11Window();
  bool isCompositorTelling();
  std::optional<WindowOnScreen> windowOfWaylandAt(CGPoint point);
  std::optional<ActiveTopLevel> activeTopLevel();

  Compositor* const compositor_;
  DisplayServer* const xServer_;
  ActiveTopLevels* topLevels_ = nullptr;
  std::atomic<bool> isInputOfX11_ = true;
  std::atomic<bool> areDevicesRead_ = false;

  struct Press {
    CGPoint place;
    WindowOnScreen window;
  };
  std::mutex mutex_;
  std::optional<Press> press_;  // of the devices; guarded by mutex_
};

}  // namespace norra::linux_desktop
