#include "Platform/Linux/wayland/WaylandDisplay.h"

#include <optional>
#include <utility>

#include "Platform/Linux/wayland/KWinWindows.h"
#include "Platform/Linux/wayland/SwayWindows.h"
#include "Platform/Linux/wayland/WaylandConnection.h"
#include "Platform/Linux/wayland/WaylandWindows.h"
#include "Platform/Linux/wayland/WaylandWorkspace.h"

namespace norra::linux_desktop {
namespace {

std::unique_ptr<Compositor> openCompositor(sd_event* event) {
  if (auto sway = SwayWindows::open(event)) return sway;
  return KWinWindows::open(event, false);
}

class WaylandDisplay final : public DisplayServer {
 public:
  WaylandDisplay(sd_event* event, const OpenXServer& openXServer, InputListeners listeners,
                 std::function<void()> didLoseServer)
      : event_(event),
        connection_(WaylandConnection::open(event, std::move(didLoseServer))),
        xServer_(openXServer(std::move(listeners))),
        compositor_(openCompositor(event)),
        windows_(compositor_.get(), xServer_.get()) {}

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
  EventTaps* eventTaps() override { return xServer_ ? xServer_->eventTaps() : nullptr; }
  DisplayFacts facts() override {
    DisplayFacts facts;
    facts.isWayland = true;
    facts.hasServer = connection_ != nullptr;
    facts.hasXServer = xServer_ != nullptr;
    facts.hasInput = xServer_ && xServer_->facts().hasInput;
    facts.hasWindowManager = true;
    facts.hasActiveWindow = true;
    return facts;
  }

 private:
  sd_event* const event_;
  const std::unique_ptr<WaylandConnection> connection_;  // null: not reached
  const std::unique_ptr<DisplayServer> xServer_;         // null: none
  const std::unique_ptr<Compositor> compositor_;         // null: it tells nothing
  WaylandWindows windows_;
  ActiveTopLevels* topLevels_ = nullptr;
  std::optional<WaylandWorkspace> workspace_;
};

}  // namespace

std::unique_ptr<DisplayServer> openWaylandDisplay(sd_event* event, const OpenXServer& openXServer,
                                                  InputListeners listeners, std::function<void()> didLoseServer) {
  return std::make_unique<WaylandDisplay>(event, openXServer, std::move(listeners), std::move(didLoseServer));
}

}  // namespace norra::linux_desktop
