// A client of the service, as a program of its own would be.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

struct ReceivedEvent {
  std::string event;
  std::uint64_t date = 0;
  bool isApplicationEvent = false;
  bool operator==(const ReceivedEvent&) const = default;
};

/// Reads from the bus while the event loop runs.
class TestClient {
 public:
  enum class Object {
    none,
    usable,
    withoutAddEvent,
    neverAnswering,  // takes reports and sends no answer to them
  };

  explicit TestClient(sd_event* event, Object object = Object::usable);

  /// Calls the service; the answer, an error's name included, is appended to replies().
  void call(const char* method, const char* argument = nullptr);
  const std::vector<std::string>& replies() const { return replies_; }
  const std::vector<ReceivedEvent>& events() const { return events_; }

  /// Leaves everything unread, or goes on reading.
  void stopReading();
  void readAgain(sd_event* event);
  /// Reads without an event loop until so many events are there or nothing comes for the limit.
  void readEvents(std::size_t count, std::chrono::milliseconds limit);

  /// Leaves the bus.
  void vanish();

 private:
  static int onAddEvent(sd_bus_message* call, void* client, sd_bus_error* error) noexcept;
  static int onReply(sd_bus_message* reply, void* client, sd_bus_error* error) noexcept;
  static const sd_bus_vtable usableObject[];

  bool answers_;
  std::vector<std::string> replies_;
  std::vector<ReceivedEvent> events_;
  BusPtr bus_;
};

}  // namespace norra::linux_desktop
