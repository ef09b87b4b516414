// Owners of sd-bus handles, and what every user of the session bus does with it.
#pragma once

#include <systemd/sd-bus.h>

#include <chrono>
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

}  // namespace norra::linux_desktop
