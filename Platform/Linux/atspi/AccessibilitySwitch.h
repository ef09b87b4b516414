// The desktop's switch for accessibility. Applications that start while it is off stay off the accessibility bus.
#pragma once

#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/runtime/SessionMarker.h"

namespace norra::linux_desktop {

/// Main thread. Switches it on if it is off, and off again at the end: it is a setting of the user, which outlives the
/// session. What a service of this session switched on that crashed or could not reach the bus at its end is taken
/// over; while another service needs it, it stays on. Where the switch follows those who listen by itself
/// (at-spi2-core from 2.61) it is left alone.
class AccessibilitySwitch {
 public:
  /// `event` must outlive this. Does not wait for the bus. Without a session bus nothing happens.
  explicit AccessibilitySwitch(sd_event* event);
  /// Waits for the switch a bounded time; for a bus that was lost too, which may have been started anew.
  ~AccessibilitySwitch();
  AccessibilitySwitch(const AccessibilitySwitch&) = delete;
  AccessibilitySwitch& operator=(const AccessibilitySwitch&) = delete;

 private:
  void ask(const char* property, sd_bus_message_handler_t answered);
  void switchOn();
  bool isSwitchedOff();
  static int onKind(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
  static int onState(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;

  SessionMarker marker_;
  BusPtr bus_;
  SlotPtr question_;
  bool isOurs_ = false;  // on since we, or a service before us, switched it on
};

}  // namespace norra::linux_desktop
