// Waiting for a bus, never longer than until a deadline.
#pragma once

#include <chrono>
#include <cstdint>

#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

/// Serves the bus until `isDone`, the deadline or a failure, however much arrives. Whether it is done.
template <typename Condition>
bool serveBus(sd_bus* bus, std::chrono::steady_clock::time_point deadline, const Condition& isDone) {
  using std::chrono::ceil, std::chrono::microseconds, std::chrono::steady_clock;
  while (!isDone()) {
    const auto processed = sd_bus_process(bus, nullptr);
    const auto left = ceil<microseconds>(deadline - steady_clock::now());
    if (processed < 0) return false;
    if (processed > 0 && left.count() > 0) continue;
    if (left.count() <= 0) return isDone();
    if (sd_bus_wait(bus, static_cast<std::uint64_t>(left.count())) < 0) return false;
  }
  return true;
}

/// The connection when it is ready for use; null when it is not by the deadline.
BusPtr ready(BusPtr bus, std::chrono::steady_clock::time_point deadline);

/// A connection to the session bus that no event loop serves; null when it is not ready by the deadline.
BusPtr openSessionBus(std::chrono::steady_clock::time_point deadline);

/// The answer to a call; null when it is an error or none comes by the deadline, or when the call is null.
MessagePtr answerTo(sd_bus* bus, sd_bus_message* call, std::chrono::steady_clock::time_point deadline);

}  // namespace norra::linux_desktop
