// Input of a Wayland session: of the windows of X11 as the X server tells it, of all others from the input devices,
// where the user may read them.
//
// Devices tell which button, and the compositor where the pointer is, if it does; or the compositor tells both, and
// then needs no devices. A click whose place is not known is not told.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "Platform/Linux/display/DisplayServer.h"
#include "Platform/Linux/display/TapBook.h"
#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/wayland/InputDevices.h"
#include "Platform/Linux/wayland/WaylandKeyboard.h"
#include "Platform/Linux/wayland/WaylandWindows.h"

namespace norra::linux_desktop {

/// Main thread. No device is open while no tap wants anything.
class WaylandEventTaps final : public EventTaps {
 public:
  struct Surroundings {
    sd_event* event = nullptr;
    WaylandConnection* connection = nullptr;  // null: no layout is known, and keys are not told
    Compositor* compositor = nullptr;         // null: none tells of its windows
    WaylandWindows& windows;
    EventTaps* ofX11 = nullptr;  // null: none
    std::filesystem::path devices;
  };

  /// All of the surroundings must outlive this.
  WaylandEventTaps(Surroundings surroundings, InputListeners listeners)
      : surroundings_(std::move(surroundings)),
        listeners_(std::move(listeners)),
        closing_(surroundings_.event, [this] { closeIfUnwanted(); }),
        pointer_(surroundings_.event, [this] { surroundings_.windows.whenPointerIsTold([this] { handleButtons(); }); }),
        release_(surroundings_.event, [this] { handleReleases(); }) {}

  std::unique_ptr<EventTap> createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) override;

 private:
  bool isWanted() const { return taps_.wantedEvents() != 0; }
  void didChangeTaps();
  void closeIfUnwanted();
  void handle(const InputKey& key);
  void handleButton(const InputKey& key);
  void handleButtons();
  void noteButtonOfCompositor(const InputKey& key, const std::optional<PointedWindow>& pointed);
  void handleReleases();
  void handleButtonAt(const InputKey& key, const std::optional<PointedWindow>& pointed);
  void handlePress(const std::optional<PointedWindow>& pointed);
  void handleRelease(std::uint16_t button, const std::optional<PointedWindow>& pointed);
  void handleKey(const InputKey& key);

  const Surroundings surroundings_;
  const InputListeners listeners_;
  TapBook taps_{[this] { didChangeTaps(); }};
  std::unique_ptr<WaylandKeyboard> keyboard_;
  std::unique_ptr<InputDevices> devices_;  // while a tap wants anything
  std::unique_ptr<Registration> buttonsOfCompositor_;
  DeferredRun closing_;
  std::vector<InputKey> buttons_;  // to be handled when the pointer is told
  DeferredRun pointer_;
  std::vector<std::pair<InputKey, std::optional<PointedWindow>>> releases_;  // which their windows may not have yet
  DeferredRun release_;
};

}  // namespace norra::linux_desktop
