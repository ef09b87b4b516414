// What the user did last, for telling what they wrote from what their application did on its own.
#pragma once

#include <chrono>
#include <mutex>
#include <optional>

#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Any thread.
class LastInput {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  void noteKey();
  /// A button was pressed at a point of the screen; `isInPopUp`: in a menu, a list or the like.
  void notePress(CGPoint point, bool isInPopUp);

  /// Whether the text of a field that has been followed since then cannot have been changed by the user, since the last
  /// that they did was to press a button elsewhere, or before.
  bool wasElsewhere(const ElementView& field, TimePoint followedSince) const;

 private:
  struct Press {
    CGPoint point;
    bool isInPopUp = false;
    TimePoint time;
  };

  mutable std::mutex mutex_;
  std::optional<Press> press_;  // the last thing that was done; guarded by mutex_
};

}  // namespace norra::linux_desktop
