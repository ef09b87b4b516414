#include "Platform/Linux/FocusMemory.h"

namespace norra::linux_desktop {

std::optional<AtspiReference> FocusMemory::focused(std::string_view busName) const {
  const std::lock_guard lock(mutex_);
  const auto found = paths_.find(busName);
  if (found == paths_.end()) return std::nullopt;
  return AtspiReference{found->first, found->second};
}

void FocusMemory::noteFocus(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  paths_.insert_or_assign(element.busName, element.path);
}

void FocusMemory::noteLoss(const AtspiReference& element) {
  const std::lock_guard lock(mutex_);
  const auto found = paths_.find(element.busName);
  if (found != paths_.end() && found->second == element.path) paths_.erase(found);
}

void FocusMemory::forget(std::string_view busName) {
  const std::lock_guard lock(mutex_);
  const auto found = paths_.find(busName);
  if (found != paths_.end()) paths_.erase(found);
}

}  // namespace norra::linux_desktop
