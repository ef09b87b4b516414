#include "Platform/Linux/pointer/TopLevels.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxTopLevels = 256;

bool isAsItWas(const WindowOnScreen& now, const WindowOnScreen& then) {
  return now.process == then.process && now.title == then.title && now.client.width == then.client.width &&
         now.client.height == then.client.height;
}

}  // namespace

AtspiReference KnownTopLevels::find(const WindowOnScreen& window) const {
  const std::lock_guard lock(mutex_);
  const auto found = topLevels_.find(window.window);
  const bool isKnown = found != topLevels_.end() && isAsItWas(window, found->second.window);
  return isKnown && !window.overrideRedirect ? found->second.reference : AtspiReference{};
}

bool KnownTopLevels::isScaled(const WindowOnScreen& window) const {
  const std::lock_guard lock(mutex_);
  const auto found = topLevels_.find(window.window);
  return found != topLevels_.end() && found->second.isScaled;
}

void KnownTopLevels::note(const WindowOnScreen& window, const AtspiReference& topLevel, bool isScaled) {
  const std::lock_guard lock(mutex_);
  if (topLevels_.size() >= maxTopLevels) topLevels_.clear();
  topLevels_.insert_or_assign(window.window, TopLevel{window, topLevel, isScaled});
}

void KnownTopLevels::forget(const WindowOnScreen& window) {
  const std::lock_guard lock(mutex_);
  topLevels_.erase(window.window);
}

void KnownTopLevels::clear() {
  const std::lock_guard lock(mutex_);
  topLevels_.clear();
}

}  // namespace norra::linux_desktop
