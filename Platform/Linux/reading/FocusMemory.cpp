#include "Platform/Linux/reading/FocusMemory.h"

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::size_t mostUnlost = 8;

}  // namespace

void FocusMemory::noteArrival(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  arrived_ = element;
  lastArrived_ = element;
  std::erase(unlost_, element);
  unlost_.push_front(element);
  if (unlost_.size() > mostUnlost) unlost_.pop_back();
}

AtspiReference FocusMemory::noteLoss(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  std::erase(unlost_, element);
  return element == lastArrived_ && !unlost_.empty() ? unlost_.front() : AtspiReference{};
}

AtspiReference FocusMemory::lastArrival() const { return copy(lastArrived_); }

AtspiReference FocusMemory::takeArrival() {
  const std::lock_guard lock(mutex_);
  return std::exchange(arrived_, {});
}

AtspiReference FocusMemory::followed() const { return copy(followed_); }

void FocusMemory::follow(const AtspiReference& element) { followFound(element, {}); }

void FocusMemory::followFound(const AtspiReference& element, const AtspiReference& focused) {
  const std::lock_guard lock(mutex_);
  followed_ = element;
  found_ = focused;
}

AtspiReference FocusMemory::found() const { return copy(found_); }

AtspiReference FocusMemory::copy(const AtspiReference& reference) const {
  const std::lock_guard lock(mutex_);
  return reference;
}

}  // namespace norra::linux_desktop
