#include "Platform/Linux/FocusMemory.h"

#include <utility>

namespace norra::linux_desktop {

std::optional<AtspiReference> FocusMemory::find(std::string_view busName,
                                                std::optional<std::string> Paths::*path) const {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found == applications_.end() || !(found->second.*path)) return std::nullopt;
  return AtspiReference{found->first, *(found->second.*path)};
}

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
  return find(busName, &Paths::followed);
}

void FocusMemory::follow(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  applications_[element.busName].followed = element.path;
}

std::optional<AtspiReference> FocusMemory::menuItem(std::string_view busName) const {
  return find(busName, &Paths::menuItem);
}

void FocusMemory::noteMenuItem(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  applications_[element.busName].menuItem = element.path;
}

void FocusMemory::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found != applications_.end()) applications_.erase(found);
}

}  // namespace norra::linux_desktop
