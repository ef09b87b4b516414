// Brings the events of an X11 connection to the main thread's event loop.
#pragma once

#include <systemd/sd-event.h>

#include <functional>

#include "Platform/Linux/runtime/EventSource.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra::linux_desktop {

/// Main thread only; destruction ends the delivery.
class X11EventSource {
 public:
  using EventHandler = std::function<void(const xcb_generic_event_t& event)>;

  /// Neither the loop nor the connection is owned. `didLoseConnection` is called once, when the server has gone.
  /// `priority` is that of the loop's sources: a smaller number goes first.
  X11EventSource(sd_event* event, X11Connection& connection, EventHandler handler,
                 std::function<void()> didLoseConnection, std::int64_t priority = SD_EVENT_PRIORITY_NORMAL);
  X11EventSource(const X11EventSource&) = delete;
  X11EventSource& operator=(const X11EventSource&) = delete;

 private:
  static int onInput(sd_event_source* source, int descriptor, std::uint32_t events, void* self) noexcept;
  static int onPrepare(sd_event_source* source, void* self) noexcept;
  void addQueuedSource(sd_event* event, std::int64_t priority);
  void dispatch();
  void endIfLost();

  X11Connection& connection_;
  EventHandler handler_;
  std::function<void()> didLoseConnection_;
  std::unique_ptr<xcb_generic_event_t, Free> next_;
  EventSourcePtr input_;
  EventSourcePtr queued_;  // enabled while next_ waits
};

}  // namespace norra::linux_desktop
