#include "Platform/Linux/x11/X11EventSource.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <utility>

namespace norra::linux_desktop {

X11EventSource::X11EventSource(sd_event* event, X11Connection& connection, EventHandler handler,
                               std::function<void()> didLoseConnection, std::int64_t priority)
    : connection_(connection), handler_(std::move(handler)), didLoseConnection_(std::move(didLoseConnection)) {
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event, &source, xcb_get_file_descriptor(connection_.get()), POLLIN, onInput, this),
          "sd_event_add_io");
  input_.reset(source);
  require(sd_event_source_set_prepare(source, onPrepare), "sd_event_source_set_prepare");
  require(sd_event_source_set_priority(source, priority), "sd_event_source_set_priority");
  addQueuedSource(event, priority);
}

// A deferred source would do, but the loop prefers such a one to all others of its priority.
void X11EventSource::addQueuedSource(sd_event* event, std::int64_t priority) {
  const int alwaysReadable = require(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd");
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event, &source, alwaysReadable, POLLIN, onInput, this), "sd_event_add_io");
  queued_.reset(source);
  require(sd_event_source_set_io_fd_own(source, 1), "sd_event_source_set_io_fd_own");
  require(sd_event_source_set_priority(source, priority), "sd_event_source_set_priority");
  require(sd_event_source_set_enabled(source, SD_EVENT_OFF), "sd_event_source_set_enabled");
}

int X11EventSource::onInput(sd_event_source*, int, std::uint32_t, void* self) noexcept {
  static_cast<X11EventSource*>(self)->dispatch();
  return 0;
}

// Whoever waited for an answer may have read events too; the descriptor says nothing of them.
int X11EventSource::onPrepare(sd_event_source*, void* self) noexcept {
  auto& source = *static_cast<X11EventSource*>(self);
  if (!source.next_) source.next_.reset(xcb_poll_for_queued_event(source.connection_.get()));
  if (source.next_) sd_event_source_set_enabled(source.queued_.get(), SD_EVENT_ONESHOT);
  return 0;
}

// One event a turn, so that a flood of them keeps nobody else waiting.
void X11EventSource::dispatch() {
  if (!next_) next_.reset(xcb_poll_for_event(connection_.get()));
  if (const auto event = std::exchange(next_, nullptr)) handler_(*event);
  endIfLost();
}

void X11EventSource::endIfLost() {
  if (!connection_.isLost()) return;
  input_.reset();
  queued_.reset();
  if (const auto didLose = std::exchange(didLoseConnection_, nullptr)) didLose();
}

}  // namespace norra::linux_desktop
