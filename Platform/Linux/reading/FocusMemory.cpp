#include "Platform/Linux/reading/FocusMemory.h"

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxUnlost = 8;
constexpr std::size_t maxArrivals = 8;

}  // namespace

void FocusMemory::noteArrival(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  if (arrived_.size() == maxArrivals) arrived_.erase(arrived_.begin());
  arrived_.push_back(element);
  lastArrived_ = element;
  arrivedAt_ = std::chrono::steady_clock::now();
  std::erase(unlost_, element);
  unlost_.push_front(element);
  if (unlost_.size() > maxUnlost) unlost_.pop_back();
}

AtspiReference FocusMemory::noteLoss(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  std::erase(unlost_, element);
  return element == lastArrived_ && !unlost_.empty() ? unlost_.front() : AtspiReference{};
}

AtspiReference FocusMemory::lastArrival() const { return copy(lastArrived_); }

std::vector<AtspiReference> FocusMemory::takeArrivals() {
  const std::lock_guard lock(mutex_);
  return std::exchange(arrived_, {});
}

AtspiReference FocusMemory::followed() const { return copy(followed_); }

AtspiReference FocusMemory::followedSince(std::chrono::steady_clock::time_point time) const {
  const std::lock_guard lock(mutex_);
  return arrivedAt_ > time ? followed_ : AtspiReference{};
}

AtspiReference FocusMemory::followedAt(std::chrono::steady_clock::time_point time) const {
  const std::lock_guard lock(mutex_);
  return followedFrom_ > time ? followedBefore_ : followed_;
}

void FocusMemory::follow(const AtspiReference& element) { followFound(element, {}); }

void FocusMemory::followFound(const AtspiReference& element, const AtspiReference& focused) {
  const std::lock_guard lock(mutex_);
  if (element != followed_) {
    followedBefore_ = std::exchange(followed_, element);
    followedFrom_ = std::chrono::steady_clock::now();
  }
  found_ = focused;
  open_ = {};
}

void FocusMemory::followOpen(const AtspiReference& comboBox) {
  const std::lock_guard lock(mutex_);
  followed_ = open_ = comboBox;
  found_ = {};
}

AtspiReference FocusMemory::found() const { return copy(found_); }

AtspiReference FocusMemory::copy(const AtspiReference& reference) const {
  const std::lock_guard lock(mutex_);
  return reference;
}

}  // namespace norra::linux_desktop
