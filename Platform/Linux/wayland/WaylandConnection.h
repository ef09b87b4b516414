// A connection to the compositor, as any client has one. It tells of nobody's windows and input; it is there to know
// that the compositor is.
#pragma once

#include <systemd/sd-event.h>
#include <wayland-client-core.h>

#include <functional>
#include <memory>

#include "Platform/Linux/runtime/EventSource.h"

namespace norra::linux_desktop {

struct WaylandDisconnect {
  void operator()(wl_display* display) const noexcept { wl_display_disconnect(display); }
};

/// Main thread.
class WaylandConnection {
 public:
  /// To the compositor that the environment names; null: none is reached. `event` must outlive the result;
  /// `didLoseConnection` is called at most once, and nothing of this after it.
  static std::unique_ptr<WaylandConnection> open(sd_event* event, std::function<void()> didLoseConnection);
  WaylandConnection(const WaylandConnection&) = delete;
  WaylandConnection& operator=(const WaylandConnection&) = delete;

  wl_display* get() const { return display_.get(); }

 private:
  using DisplayPtr = std::unique_ptr<wl_display, WaylandDisconnect>;

  WaylandConnection(sd_event* event, DisplayPtr display, std::function<void()> didLoseConnection);
  bool dispatch();
  static int onInput(sd_event_source* source, int descriptor, std::uint32_t events, void* self) noexcept;

  const DisplayPtr display_;
  const std::function<void()> didLoseConnection_;
  EventSourcePtr source_;
};

}  // namespace norra::linux_desktop
