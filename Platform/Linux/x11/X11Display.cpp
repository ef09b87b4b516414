#include "Platform/Linux/x11/X11Display.h"

#include <utility>

#include "Platform/Linux/x11/X11EventTaps.h"
#include "Platform/Linux/x11/X11Windows.h"
#include "Platform/Linux/x11/X11Workspace.h"

namespace norra::linux_desktop {
namespace {

class X11Display final : public DisplayServer {
 public:
  X11Display(sd_event* event, std::unique_ptr<X11Connection> forWindows, std::unique_ptr<X11Connection> forPlaces,
             std::unique_ptr<X11Connection> forInput, InputListeners listeners, std::function<void()> didLoseServer)
      : event_(event),
        didLoseServer_(std::move(didLoseServer)),
        windows_(std::move(forWindows), std::move(forPlaces)),
        windowActivated_(listeners.windowActivated),
        eventTaps_(
            X11EventTaps::open(event, std::move(forInput), std::move(listeners), [this] { noteActiveWindow(); })) {}

  WindowsOnScreen& windows() override { return windows_; }
  ApplicationWindows& applications() override { return windows_; }
  Workspace* workspace() override {
    auto connection = workspace_ ? nullptr : X11Connection::open();
    if (connection) {
      workspace_ = std::make_unique<X11Workspace>(event_, std::move(connection), windows_, didLoseServer_);
    }
    return workspace_.get();
  }
  EventTaps* eventTaps() override { return eventTaps_.get(); }
  DisplayFacts facts() override {
    return {.hasServer = true,
            .hasXServer = true,
            .hasInput = eventTaps_ != nullptr,
            .hasWindowManager = windows_.hasWindowManager(),
            .hasActiveWindow = windows_.activeWindow().has_value()};
  }

 private:
  void noteActiveWindow() {
    windows_.noteActiveWindow();
    if (windowActivated_) windowActivated_();
  }

  sd_event* const event_;
  const std::function<void()> didLoseServer_;
  X11Windows windows_;
  const std::function<void()> windowActivated_;
  std::unique_ptr<X11Workspace> workspace_;
  const std::unique_ptr<X11EventTaps> eventTaps_;  // null: the server has no XInput 2.2
};

}  // namespace

std::unique_ptr<DisplayServer> openX11Display(sd_event* event, InputListeners listeners,
                                              std::function<void()> didLoseServer) {
  auto forWindows = X11Connection::open();
  auto forPlaces = X11Connection::open();
  auto forInput = X11Connection::open();
  if (!forWindows || !forPlaces || !forInput) return nullptr;
  return std::make_unique<X11Display>(event, std::move(forWindows), std::move(forPlaces), std::move(forInput),
                                      std::move(listeners), std::move(didLoseServer));
}

}  // namespace norra::linux_desktop
