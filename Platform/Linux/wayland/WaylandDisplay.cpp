#include "Platform/Linux/wayland/WaylandDisplay.h"

#include <optional>
#include <utility>

#include "Platform/Linux/wayland/GnomeShellWindows.h"
#include "Platform/Linux/wayland/KWinWindows.h"
#include "Platform/Linux/wayland/SwayWindows.h"
#include "Platform/Linux/wayland/WaylandConnection.h"
#include "Platform/Linux/wayland/WaylandEventTaps.h"
#include "Platform/Linux/wayland/WaylandWindows.h"
#include "Platform/Linux/wayland/WaylandWorkspace.h"

namespace norra::linux_desktop {
namespace {

// Where the pointer is does not matter where nobody tells of its buttons.
std::unique_ptr<Compositor> openCompositor(sd_event* event, bool needsPointer) {
  if (auto sway = SwayWindows::open(event)) return sway;
  if (auto kwin = KWinWindows::open(event, needsPointer)) return kwin;
  return GnomeShellWindows::open(event);
}

class WaylandDisplay final : public DisplayServer {
 public:
  WaylandDisplay(sd_event* event, const OpenXServer& openXServer, const InputListeners& listeners,
                 std::function<void()> didLoseServer)
      : event_(event),
        connection_(WaylandConnection::open(event, std::move(didLoseServer))),
        xServer_(openXServer(listenersOfX11(listeners))),
        hasDevices_(InputDevices::mayRead(InputDevices::defaultFolder())),
        compositor_(openCompositor(event, hasDevices_)),
        windows_(compositor_.get(), xServer_.get()),
        eventTaps_(
            {event, connection_.get(), compositor_.get(), windows_, eventTapsOfX11(), InputDevices::defaultFolder()},
            listeners) {
    windows_.setDevicesRead(hasDevices_);
  }

  void use(ActiveTopLevels& topLevels) override {
    topLevels_ = &topLevels;
    windows_.use(topLevels);
  }
  WindowsOnScreen& windows() override { return windows_; }
  ApplicationWindows& applications() override { return windows_; }
  Workspace* workspace() override {
    if (!workspace_) workspace_.emplace(event_, windows_, WindowSources{compositor_.get(), xServer_.get(), topLevels_});
    return &*workspace_;
  }
  EventTaps* eventTaps() override { return hasDevices_ || mayHaveButtons() ? &eventTaps_ : eventTapsOfX11(); }
  DisplayFacts facts() override {
    DisplayFacts facts;
    facts.isWayland = true;
    facts.hasServer = connection_ != nullptr;
    facts.hasXServer = xServer_ != nullptr;
    facts.hasInput = xServer_ && xServer_->facts().hasInput;
    facts.hasDevices = hasDevices_;
    facts.hasPointer = hasPointer();
    facts.hasButtons = compositor_ && compositor_->tellsButtons();
    facts.mayHaveButtons = mayHaveButtons();
    facts.hasWindowManager = true;
    facts.hasActiveWindow = true;
    return facts;
  }

 private:
  EventTaps* eventTapsOfX11() { return xServer_ ? xServer_->eventTaps() : nullptr; }
  bool hasPointer() const { return compositor_ && compositor_->tellsPointer(); }
  bool mayHaveButtons() const { return compositor_ && compositor_->mayTellButtons(); }
  InputListeners listenersOfX11(InputListeners listeners) {
    listeners.pressed = [this, pressed = std::move(listeners.pressed)](std::optional<CGPoint> place) {
      windows_.setInputOfX11(true);
      if (pressed) pressed(place);
    };
    return listeners;
  }

  sd_event* const event_;
  const std::unique_ptr<WaylandConnection> connection_;  // null: not reached
  const std::unique_ptr<DisplayServer> xServer_;         // null: none
  const bool hasDevices_;
  const std::unique_ptr<Compositor> compositor_;  // null: it tells nothing
  WaylandWindows windows_;
  ActiveTopLevels* topLevels_ = nullptr;
  std::optional<WaylandWorkspace> workspace_;
  WaylandEventTaps eventTaps_;
};

}  // namespace

std::unique_ptr<DisplayServer> openWaylandDisplay(sd_event* event, const OpenXServer& openXServer,
                                                  InputListeners listeners, std::function<void()> didLoseServer) {
  return std::make_unique<WaylandDisplay>(event, openXServer, listeners, std::move(didLoseServer));
}

}  // namespace norra::linux_desktop
