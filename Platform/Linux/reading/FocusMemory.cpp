#include "Platform/Linux/reading/FocusMemory.h"

#include <utility>

namespace norra::linux_desktop {

void FocusMemory::noteArrival(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  auto& paths = applications_[element.busName];
  paths.arrived = element.path;
  paths.lastArrived = element.path;
}

AtspiReference FocusMemory::lastArrival(std::string_view busName) const {
  return find(busName, &Paths::lastArrived).value_or(AtspiReference{});
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
  auto& paths = applications_[element.busName];
  paths.followed = element.path;
  paths.found.reset();
}

void FocusMemory::followFound(const AtspiReference& element, const AtspiReference& focused) {
  const std::lock_guard lock(mutex_);
  auto& paths = applications_[element.busName];
  paths.followed = element.path;
  paths.found = focused.path;
}

std::optional<AtspiReference> FocusMemory::found(std::string_view busName) const {
  return find(busName, &Paths::found);
}

std::optional<AtspiReference> FocusMemory::find(std::string_view busName,
                                                std::optional<std::string> Paths::*path) const {
  const std::lock_guard lock(mutex_);
  const auto application = applications_.find(busName);
  if (application == applications_.end() || !(application->second.*path)) return std::nullopt;
  return AtspiReference{application->first, *(application->second.*path)};
}

void FocusMemory::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = applications_.find(busName);
  if (found != applications_.end()) applications_.erase(found);
}

void FocusMemory::clear() {
  const std::lock_guard lock(mutex_);
  applications_.clear();
}

}  // namespace norra::linux_desktop
