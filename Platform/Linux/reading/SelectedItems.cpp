#include "Platform/Linux/reading/SelectedItems.h"

#include <algorithm>

namespace norra::linux_desktop {

void SelectedItems::note(const AtspiReference& container, const AtspiReference& item) {
  const std::lock_guard lock(mutex_);
  auto& items = itemsOf(container).items;
  if (std::ranges::find(items, item) != items.end()) return;
  items.push_back(item);
  if (items.size() > maxItems) items.pop_front();
}

std::vector<AtspiReference> SelectedItems::notedIn(const AtspiReference& container) const {
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find(containers_, container, &Items::container);
  if (found == containers_.end()) return {};
  return {found->items.begin(), found->items.end()};
}

// With the lock held.
SelectedItems::Items& SelectedItems::itemsOf(const AtspiReference& container) {
  const auto found = std::ranges::find(containers_, container, &Items::container);
  if (found != containers_.end()) return *found;
  containers_.push_back({container, {}});
  if (containers_.size() > maxContainers) containers_.pop_front();
  return containers_.back();
}

}  // namespace norra::linux_desktop
