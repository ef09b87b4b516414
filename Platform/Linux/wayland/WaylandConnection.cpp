#include "Platform/Linux/wayland/WaylandConnection.h"

#include <poll.h>

#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {

std::unique_ptr<WaylandConnection> WaylandConnection::open(sd_event* event, std::function<void()> didLoseConnection) {
  DisplayPtr display(wl_display_connect(nullptr));
  if (!display) return nullptr;
  return std::unique_ptr<WaylandConnection>(
      new WaylandConnection(event, std::move(display), std::move(didLoseConnection)));
}

WaylandConnection::WaylandConnection(sd_event* event, DisplayPtr display, std::function<void()> didLoseConnection)
    : display_(std::move(display)), didLoseConnection_(std::move(didLoseConnection)) {
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event, &source, wl_display_get_fd(display_.get()), POLLIN, onInput, this), "sd_event_add_io");
  source_.reset(source);
}

bool WaylandConnection::dispatch() {
  auto* const display = display_.get();
  while (wl_display_prepare_read(display) != 0) {
    if (wl_display_dispatch_pending(display) < 0) return false;
  }
  return wl_display_read_events(display) >= 0 && wl_display_dispatch_pending(display) >= 0 &&
         wl_display_flush(display) >= 0;
}

int WaylandConnection::onInput(sd_event_source*, int, std::uint32_t, void* self) noexcept {
  auto& connection = *static_cast<WaylandConnection*>(self);
  if (connection.dispatch()) return 0;
  connection.source_.reset();
  platformLogger().error("The compositor has gone: application switches are not seen any more");
  connection.didLoseConnection_();
  return 0;
}

}  // namespace norra::linux_desktop
