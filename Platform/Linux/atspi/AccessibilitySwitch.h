// The desktop's switch for accessibility. Applications that start while it is off stay off the accessibility bus.
#pragma once

#include <memory>

#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

/// Main thread. Switches it on if it is off, and off again at the end if it was this that switched it on: it is a
/// setting of the user, which outlives the session.
class AccessibilitySwitch {
 public:
  /// `event` must outlive this. Does not wait. Without a session bus nothing happens.
  explicit AccessibilitySwitch(sd_event* event);
  /// Waits for the switch a bounded time.
  ~AccessibilitySwitch();
  AccessibilitySwitch(const AccessibilitySwitch&) = delete;
  AccessibilitySwitch& operator=(const AccessibilitySwitch&) = delete;

 private:
  void askWhetherOn();
  void switchTo(bool on);
  static int onAnswer(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;

  BusPtr bus_;
  SlotPtr question_;
  bool wasSwitchedOn_ = false;
};

}  // namespace norra::linux_desktop
