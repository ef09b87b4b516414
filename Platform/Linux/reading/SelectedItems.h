// Items that were selected in containers of one application that cannot say which of theirs are: what the events of the
// items told. Such a container may have a million items, and to ask each would stop the application.
#pragma once

#include <deque>
#include <mutex>
#include <vector>

#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Any thread.
class SelectedItems {
 public:
  static constexpr std::size_t maxItems = 64;
  static constexpr std::size_t maxContainers = 8;

  /// The item of the container is selected, or was.
  void note(const AtspiReference& container, const AtspiReference& item);
  /// All that were noted and not pushed out by newer ones. Whether they still are selected has to be asked.
  std::vector<AtspiReference> notedIn(const AtspiReference& container) const;

 private:
  struct Items {
    AtspiReference container;
    std::deque<AtspiReference> items;
  };

  Items& itemsOf(const AtspiReference& container);

  mutable std::mutex mutex_;
  std::deque<Items> containers_;  // the newest last; guarded by mutex_
};

}  // namespace norra::linux_desktop
