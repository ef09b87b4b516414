// Owners of the handles of systemd's event loop, and the one way to treat a call of it that must not fail.
#pragma once

#include <systemd/sd-event.h>

#include <memory>

namespace norra::linux_desktop {

struct EventUnref {
  void operator()(sd_event* event) const noexcept { sd_event_unref(event); }
};
using EventPtr = std::unique_ptr<sd_event, EventUnref>;

struct EventSourceUnref {
  void operator()(sd_event_source* source) const noexcept { sd_event_source_disable_unref(source); }
};
/// Letting go of it ends the source; no callback of it runs after.
using EventSourcePtr = std::unique_ptr<sd_event_source, EventSourceUnref>;

/// For calls that fail only when the process is out of memory or descriptors: a negative result ends the program with a
/// line that names the operation. Gives the result.
int require(int result, const char* operation);

}  // namespace norra::linux_desktop
