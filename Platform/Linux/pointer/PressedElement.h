// Which element lay under the pointer when a button was pressed.
#pragma once

#include <cmath>
#include <mutex>
#include <utility>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Whether the pointer moved no further than it does while a button is clicked.
inline bool isSamePlace(CGPoint press, CGPoint release) {
  constexpr double steadyHandPixels = 4;
  return std::abs(press.x - release.x) <= steadyHandPixels && std::abs(press.y - release.y) <= steadyHandPixels;
}

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
