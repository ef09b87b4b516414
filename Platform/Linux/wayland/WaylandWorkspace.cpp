#include "Platform/Linux/wayland/WaylandWorkspace.h"

#include <utility>
#include <vector>

namespace norra::linux_desktop {

class WaylandWorkspace::Listening {
 public:
  explicit Listening(WaylandWorkspace& workspace) : activations_(workspace.activations_) {
    const auto& [compositor, xServer, topLevels] = workspace.sources_;
    activations_.begin();
    const auto changed = [this] { lookAgain(); };
    if (compositor) registrations_.push_back(compositor->follow(changed));
    if (topLevels) registrations_.push_back(topLevels->follow(changed));
    auto* ofX11 = xServer ? xServer->workspace() : nullptr;
    if (ofX11) registrations_.push_back(ofX11->onActivation([changed](const auto&) { changed(); }));
  }

 private:
  void lookAgain() {
    activations_.windowsDidChange();
    activations_.frontMayHaveChanged();
  }

  Activations& activations_;
  std::vector<std::unique_ptr<Registration>> registrations_;
};

class WaylandWorkspace::Handle final : public Registration {
 public:
  Handle(std::shared_ptr<Listening> listening, std::unique_ptr<Registration> activations)
      : listening_(std::move(listening)), activations_(std::move(activations)) {}

 private:
  const std::shared_ptr<Listening> listening_;
  const std::unique_ptr<Registration> activations_;
};

std::shared_ptr<WaylandWorkspace::Listening> WaylandWorkspace::listening() {
  auto listening = listening_.lock();
  if (!listening) listening_ = listening = std::make_shared<Listening>(*this);
  return listening;
}

std::unique_ptr<Registration> WaylandWorkspace::onActivation(ActivationHandler handler) {
  auto listening = this->listening();
  return std::make_unique<Handle>(std::move(listening), activations_.onActivation(std::move(handler)));
}

}  // namespace norra::linux_desktop
