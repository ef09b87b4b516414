#include "Platform/Linux/FocusMemory.h"

#include <utility>

namespace norra::linux_desktop {

void FocusMemory::noteArrival(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  applications_[element.busName].arrived = element.path;
}

std::optional<AtspiReference> FocusMemory::takeArrival(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found == applications_.end()) return std::nullopt;
  auto path = std::exchange(found->second.arrived, std::nullopt);
  if (!path) return std::nullopt;
  return AtspiReference{found->first, std::move(*path)};
}

std::optional<AtspiReference> FocusMemory::followed(std::string_view busName) const {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found == applications_.end() || !found->second.followed) return std::nullopt;
  return AtspiReference{found->first, *found->second.followed};
}

void FocusMemory::follow(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  applications_[element.busName].followed = element.path;
}

void FocusMemory::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found != applications_.end()) applications_.erase(found);
}

}  // namespace norra::linux_desktop
