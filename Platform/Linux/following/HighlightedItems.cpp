#include "Platform/Linux/following/HighlightedItems.h"

#include <algorithm>

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxItems = 16;

}  // namespace

void HighlightedItems::highlighted(const AtspiReference& item, const AtspiRectangle& place, const AtspiReference& owner,
                                   TimePoint now) {
  const std::lock_guard lock(mutex_);
  add(item, place, owner, now);
}

// With the lock held.
void HighlightedItems::add(const AtspiReference& item, const AtspiRectangle& place, const AtspiReference& owner,
                           TimePoint now) {
  const bool isFirst = items_.empty() || items_.front().owner != owner || !items_.front().isThere(now);
  items_.push_front({item, place, owner, now, isFirst, std::nullopt});
  if (items_.size() > maxItems) items_.pop_back();
}

void HighlightedItems::left(std::string_view busName, TimePoint now) {
  const std::lock_guard lock(mutex_);
  end(busName, now);
}

void HighlightedItems::wentToList(const AtspiReference& list, const AtspiReference& comboBox, TimePoint now) {
  const std::lock_guard lock(mutex_);
  const bool isOpenAlready = !items_.empty() && items_.front().owner == comboBox && items_.front().isThere(now);
  if (!isOpenAlready) return add(list, {}, comboBox, now);
  items_.front().until.reset();
}

// With the lock held.
void HighlightedItems::end(std::string_view busName, TimePoint now) {
  for (auto& item : items_) {
    if (item.reference.busName == busName && !item.until) item.until = now + grace;
  }
}

bool HighlightedItems::isOpen(const AtspiReference& comboBox, TimePoint now) const {
  const std::lock_guard lock(mutex_);
  return std::ranges::any_of(
      items_, [&](const auto& item) { return item.owner == comboBox && !item.until && !item.isOpening(now); });
}

AtspiReference HighlightedItems::highlightedIn(std::string_view busName) const {
  const std::lock_guard lock(mutex_);
  const auto found = std::ranges::find_if(
      items_, [busName](const auto& item) { return item.reference.busName == busName && !item.owner.isNull(); });
  return found != items_.end() ? found->reference : AtspiReference{};
}

AtspiReference HighlightedItems::at(CGPoint point, TimePoint now) const {
  const std::lock_guard lock(mutex_);
  const auto found =
      std::ranges::find_if(items_, [&](const auto& item) { return item.isThere(now) && contains(item.place, point); });
  if (found == items_.end()) return {};
  return found->isOpening(now) ? found->owner : found->reference;
}

AtspiReference HighlightedItems::clicked(CGPoint point, TimePoint now) {
  auto found = at(point, now);
  const std::lock_guard lock(mutex_);
  if (std::ranges::find(items_, found, &Item::reference) != items_.end()) end(found.busName, now);
  return found;
}

void HighlightedItems::clear() {
  const std::lock_guard lock(mutex_);
  items_.clear();
}

}  // namespace norra::linux_desktop
