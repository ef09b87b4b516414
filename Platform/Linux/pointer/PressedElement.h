// Which element lay under the pointer when a button was pressed.
//
// A click is reported at the release, and by then some applications do not find any more what was pressed: the list has
// opened over it, the menu has closed. What they said at the press is kept for the release at the same place.
#pragma once

#include <mutex>
#include <utility>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/display/PointerPress.h"

namespace norra::linux_desktop {

/// Of the last press only. Any thread.
class PressedElement {
 public:
  void note(CGPoint place, AtspiReference element) {
    const std::lock_guard lock(mutex_);
    place_ = place;
    element_ = std::move(element);
  }

  void forget() { note({}, {}); }

  /// Null: none is known to have been pressed there.
  AtspiReference at(CGPoint place) const {
    const std::lock_guard lock(mutex_);
    return isSamePlace(place_, place) ? element_ : AtspiReference{};
  }

 private:
  mutable std::mutex mutex_;
  CGPoint place_;           // guarded by mutex_
  AtspiReference element_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
