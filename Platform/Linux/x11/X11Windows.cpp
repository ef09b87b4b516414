#include "Platform/Linux/x11/X11Windows.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {

X11Windows::X11Windows(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Connection> forPlaces)
    : connectionForPlaces_(std::move(forPlaces)),
      treeForPlaces_(*connectionForPlaces_),
      factsForPlaces_(*connectionForPlaces_),
      connection_(std::move(connection)),
      tree_(*connection_),
      facts_(*connection_) {}

std::optional<WindowOnScreen> X11Windows::topLevelWindowAt(CGPoint point) {
  const std::lock_guard lock(placesMutex_);
  if (press_ && isSamePlace(press_->place, point)) return press_->window;
  return describeAt(point);
}

// With the lock held.
std::optional<WindowOnScreen> X11Windows::describeAt(CGPoint point) {
  const auto topLevel = treeForPlaces_.topLevelAt(point);
  return topLevel.client != XCB_NONE ? factsForPlaces_.describe(topLevel) : std::nullopt;
}

void X11Windows::notePress(std::optional<CGPoint> place) {
  const std::lock_guard lock(placesMutex_);
  press_.reset();
  if (!place) return;
  if (auto window = describeAt(*place)) press_ = {*place, std::move(*window)};
}

// With the lock held. Without a frame: none is active.
X11TopLevel X11Windows::activeTopLevel() {
  const auto active = tree_.activeClient();
  return {active != XCB_NONE ? tree_.topLevelAround(active).frame : xcb_window_t{XCB_NONE}, active};
}

std::optional<WindowOnScreen> X11Windows::activeWindow() {
  const std::lock_guard lock(mutex_);
  const auto active = activeTopLevel();
  return active.frame != XCB_NONE ? facts_.describe(active) : std::nullopt;
}

void X11Windows::noteActiveWindow() {
  const std::lock_guard lock(mutex_);
  topLevelOfInput_ = activeTopLevel();
  windowOfInput_ = topLevelOfInput_.frame != XCB_NONE ? facts_.describe(topLevelOfInput_) : std::nullopt;
}

// Its title may be another by now; of a window that has gone, what was known last is right.
std::optional<WindowOnScreen> X11Windows::windowOfInput() {
  std::unique_lock lock(mutex_);
  if (!windowOfInput_ || !tree_.hasWindowManager()) {
    lock.unlock();
    return activeWindow();
  }
  if (auto now = facts_.describe(topLevelOfInput_)) windowOfInput_ = std::move(now);
  return windowOfInput_;
}

std::optional<ApplicationWindow> X11Windows::activeApplication() {
  const std::lock_guard lock(mutex_);
  const auto active = tree_.activeClient();
  if (active == XCB_NONE) return std::nullopt;
  return facts_.traitsOf({active}).front();
}

std::optional<FrontWindow> X11Windows::front() {
  auto application = activeApplication();
  if (!application) return std::nullopt;
  const auto window = activeWindow();
  const bool isStillActive = window && window->window == application->window;
  return FrontWindow{*std::move(application), isStillActive ? window->title : std::string()};
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
