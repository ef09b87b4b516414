// Waiting in a test: for a condition, as long as it may need to come about, and no longer.
#pragma once

#include <poll.h>
#include <systemd/sd-event.h>

#include <chrono>

namespace norra::linux_desktop {

/// False: it did not come about.
template <typename Condition, typename Turn>
bool repeatUntil(const Condition& condition, const Turn& turn) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    turn();
  }
  return true;
}

template <typename Condition>
bool waitUntil(const Condition& condition) {
  return repeatUntil(condition, [] { poll(nullptr, 0, 5); });
}

/// The same while the loop's sources are served.
template <typename Condition>
bool serveUntil(sd_event* event, const Condition& condition) {
  return repeatUntil(condition, [event] { sd_event_run(event, 5'000); });
}

}  // namespace norra::linux_desktop
