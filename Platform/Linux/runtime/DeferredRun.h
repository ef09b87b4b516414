// Work that waits until what is arriving has arrived, so that a burst causes it once.
//
// Applications tell of one change by many events. Each of them requests the run, and the run looks at what there is
// when nothing else is left to be read. Where something always is, it runs soon all the same.
#pragma once

#include <systemd/sd-event.h>

#include <functional>

#include "Platform/Linux/runtime/EventSource.h"

namespace norra::linux_desktop {

/// Main thread. Letting go of it cancels.
class DeferredRun {
 public:
  DeferredRun(sd_event* event, std::function<void()> work);
  DeferredRun(const DeferredRun&) = delete;
  DeferredRun& operator=(const DeferredRun&) = delete;

  /// The work runs once, as soon as nothing else is ready, or soon all the same when there is always something.
  void request();
  /// The work runs once after the delay; a request that is pending goes on.
  void requestAfter(std::uint64_t microseconds);

 private:
  static int onIdle(sd_event_source* source, void* self) noexcept;
  static int onTime(sd_event_source* source, std::uint64_t time, void* self) noexcept;
  void run();

  sd_event* const event_;
  const std::function<void()> work_;
  EventSourcePtr idle_;
  EventSourcePtr timer_;
};

}  // namespace norra::linux_desktop
