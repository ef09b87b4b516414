#include "Platform/Linux/x11/X11Windows.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {

X11Windows::X11Windows(std::unique_ptr<X11Connection> connection)
    : connection_(std::move(connection)), tree_(*connection_), facts_(*connection_) {}

std::optional<WindowOnScreen> X11Windows::topLevelWindowAt(CGPoint point) {
  const std::lock_guard lock(mutex_);
  if (press_ && isSamePlace(press_->place, point)) return press_->window;
  return describeAt(point);
}

// With the lock held.
std::optional<WindowOnScreen> X11Windows::describeAt(CGPoint point) {
  const auto topLevel = tree_.topLevelAt(point);
  return topLevel.client != XCB_NONE ? facts_.describe(topLevel) : std::nullopt;
}

void X11Windows::notePress(std::optional<CGPoint> place) {
  const std::lock_guard lock(mutex_);
  press_.reset();
  if (!place) return;
  if (auto window = describeAt(*place)) press_ = {*place, std::move(*window)};
}

std::optional<WindowOnScreen> X11Windows::activeWindow() {
  const std::lock_guard lock(mutex_);
  const auto active = tree_.activeClient();
  if (active == XCB_NONE) return std::nullopt;
  const auto topLevel = tree_.topLevelAround(active);
  if (topLevel.frame == XCB_NONE) return std::nullopt;
  return facts_.describe({topLevel.frame, active});
}

std::optional<ApplicationWindow> X11Windows::activeApplication() {
  const std::lock_guard lock(mutex_);
  const auto active = tree_.activeClient();
  if (active == XCB_NONE) return std::nullopt;
  return facts_.traitsOf({active}).front();
}

std::optional<ApplicationWindow> X11Windows::applicationOf(ProcessIdentifier process) {
  const std::lock_guard lock(mutex_);
  auto windows = tree_.clients();
  windows.insert(windows.begin(), tree_.activeClient());
  const auto all = facts_.traitsOf(windows);
  const auto isNamed = [&](const auto& traits) { return traits.process == process && !traits.className.empty(); };
  const auto found = std::ranges::find_if(all, isNamed);
  if (found == all.end()) return std::nullopt;
  return *found;
}

bool X11Windows::hasWindowManager() {
  const std::lock_guard lock(mutex_);
  return tree_.hasWindowManager();
}

}  // namespace norra::linux_desktop
