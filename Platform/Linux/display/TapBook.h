// The event taps of a display server: which there are, what they want now, and who is told of an event.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Platform/EventTap.h"

namespace norra::linux_desktop {

/// Main thread. Must outlive its taps.
class TapBook {
 public:
  /// `changed` is called when what is wanted may be something else now.
  explicit TapBook(std::function<void()> changed) : changed_(std::move(changed)) {}

  /// Neither enabled nor on the run loop; until it is both, it wants nothing.
  std::unique_ptr<EventTap> createTap(CGEventMask eventsOfInterest, CGEventTapCallback callback);
  CGEventMask wantedEvents() const;
  /// To those who want it, in the order in which they were created. A callback may end its tap, or others.
  void deliver(const CGEvent& event) const;

 private:
  class Tap;
  struct Entry;

  const std::function<void()> changed_;
  std::vector<std::shared_ptr<Entry>> entries_;
};

}  // namespace norra::linux_desktop
