#include "Platform/Linux/X11Windows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace norra::linux_desktop {
namespace {

/// How far the pointer moves while a button is clicked.
constexpr double steadyHandPixels = 4;

}  // namespace

X11Windows::X11Windows(std::unique_ptr<X11Connection> connection)
    : connection_(std::move(connection)), tree_(*connection_), facts_(*connection_) {}

std::optional<WindowOnScreen> X11Windows::topLevelWindowAt(CGPoint point) {
  const std::lock_guard lock(mutex_);
  const auto topLevel = tree_.topLevelAt(point);
  if (topLevel.client == XCB_NONE) return std::nullopt;
  auto window = facts_.describe(topLevel);
  if (window && window->overrideRedirect && isPressedAt(point)) return facts_.describe(press_->topLevel);
  return window;
}

void X11Windows::notePress(std::optional<CGPoint> place) {
  const std::lock_guard lock(mutex_);
  press_.reset();
  if (!place) return;
  const auto topLevel = tree_.topLevelAt(*place);
  if (topLevel.client != XCB_NONE) press_ = {*place, topLevel};
}

// With the lock held.
bool X11Windows::isPressedAt(CGPoint point) const {
  if (!press_) return false;
  const auto [x, y] = press_->place;
  return std::abs(point.x - x) <= steadyHandPixels && std::abs(point.y - y) <= steadyHandPixels;
}

std::optional<WindowOnScreen> X11Windows::activeWindow() {
  const std::lock_guard lock(mutex_);
  const auto active = tree_.activeClient();
  if (active == XCB_NONE) return std::nullopt;
  const auto topLevel = tree_.topLevelAround(active);
  if (topLevel.frame == XCB_NONE) return std::nullopt;
  return facts_.describe({topLevel.frame, active});
}

std::optional<X11ApplicationTraits> X11Windows::activeApplication() {
  const std::lock_guard lock(mutex_);
  const auto active = tree_.activeClient();
  if (active == XCB_NONE) return std::nullopt;
  return facts_.traitsOf({active}).front();
}

std::optional<X11ApplicationTraits> X11Windows::applicationOf(ProcessIdentifier process) {
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
