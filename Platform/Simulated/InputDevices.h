// The pointer and the keyboard of the simulated desktop, and the taps that observe them.
#pragma once

#include "Platform/EventTap.h"
#include "Platform/Simulated/Registry.h"

namespace norra::simulated {

class InputDevices final : public EventTaps {
 public:
  explicit InputDevices(bool canObserveInput) : canObserveInput_(canObserveInput) {}

  std::unique_ptr<EventTap> createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) override;

  /// Every tap that is enabled, on the run loop and interested gets the event now.
  void send(const CGEvent& event) const;

  /// Switches every tap off and tells those on the run loop so with this event.
  void disableTaps(CGEventType saying) const;

 private:
  class Tap;

  bool canObserveInput_;
  Registry<Tap> taps_;
};

}  // namespace norra::simulated
