#include "Platform/Linux/X11Windows.h"

#include <algorithm>
#include <utility>

namespace norra::linux_desktop {

X11Windows::X11Windows(std::unique_ptr<X11Connection> connection)
    : connection_(std::move(connection)), tree_(*connection_), facts_(*connection_) {}

std::optional<WindowOnScreen> X11Windows::topLevelWindowAt(CGPoint point) {
  const std::lock_guard lock(mutex_);
  const auto topLevel = tree_.topLevelAt(point);
  if (topLevel.client == XCB_NONE) return std::nullopt;
  return facts_.describe(topLevel);
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
