// Owners of sd-bus handles, and what every user of the session bus does with it.
#pragma once

#include <systemd/sd-bus.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace norra::linux_desktop {

struct BusCloseUnref {
  void operator()(sd_bus* bus) const noexcept { sd_bus_close_unref(bus); }
};
using BusPtr = std::unique_ptr<sd_bus, BusCloseUnref>;

struct SlotUnref {
  void operator()(sd_bus_slot* slot) const noexcept { sd_bus_slot_unref(slot); }
};
/// Letting go of it ends the registration or the wait for a reply; no callback of it runs after.
using SlotPtr = std::unique_ptr<sd_bus_slot, SlotUnref>;

struct MessageUnref {
  void operator()(sd_bus_message* message) const noexcept { sd_bus_message_unref(message); }
};
using MessagePtr = std::unique_ptr<sd_bus_message, MessageUnref>;

struct TrackUnref {
  void operator()(sd_bus_track* track) const noexcept { sd_bus_track_unref(track); }
};
using TrackPtr = std::unique_ptr<sd_bus_track, TrackUnref>;

struct OpenedBus {
  BusPtr bus;           // null where it could not be opened
  std::string problem;  // then: what is wrong and what to do
};

/// A connection to the user's session bus, served by the event loop. It waits for the bus a bounded time.
OpenedBus openSessionBus(sd_event* event, const char* description);

/// Matches what a connection tells itself when it has lost its bus, whichever bus that is.
inline constexpr const char* disconnectionMatch =
    "type='signal',sender='org.freedesktop.DBus.Local',interface='org.freedesktop.DBus.Local',member='Disconnected'";

/// What the bus or the peer said, in one line.
std::string describe(const sd_bus_error& error);
/// The text of a negative errno.
std::string describe(int negativeErrno);

/// Sends what is queued, for at most the limit. False where something is left. Incoming messages may be dispatched
/// meanwhile.
bool sendQueued(sd_bus* bus, std::chrono::milliseconds limit);

// Waiting for a bus, never longer than until a deadline.

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
