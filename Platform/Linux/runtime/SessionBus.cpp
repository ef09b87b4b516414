#include "Platform/Linux/runtime/SessionBus.h"

#include <poll.h>

#include <cstring>

namespace norra::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Of the bus's own answers, when a name is asked for. It answers in well under a millisecond.
constexpr std::uint64_t busAnswerLimitMicroseconds = 5'000'000;

std::string noBusProblem(int error) {
  return "The session bus cannot be reached (" + describe(error) +
         "). Run this inside a desktop session, or under dbus-run-session.";
}

std::uint64_t queuedMessages(sd_bus* bus) {
  std::uint64_t count = 0;
  return sd_bus_get_n_queued_write(bus, &count) < 0 ? 0 : count;
}

void waitUntilWritable(sd_bus* bus, milliseconds limit) {
  pollfd socket{sd_bus_get_fd(bus), POLLOUT, 0};
  poll(&socket, 1, static_cast<int>(limit.count()));
}

}  // namespace

OpenedBus openSessionBus(sd_event* event, const char* description) {
  sd_bus* opened = nullptr;
  if (const int result = sd_bus_open_user_with_description(&opened, description); result < 0) {
    return {nullptr, noBusProblem(result)};
  }
  BusPtr bus(opened);
  sd_bus_set_method_call_timeout(opened, busAnswerLimitMicroseconds);
  const char* uniqueName = nullptr;
  int result = sd_bus_get_unique_name(opened, &uniqueName);  // shakes hands
  if (result >= 0) result = sd_bus_attach_event(opened, event, SD_EVENT_PRIORITY_NORMAL);
  if (result < 0) return {nullptr, noBusProblem(result)};
  return {std::move(bus), {}};
}

std::string describe(const sd_bus_error& error) {
  std::string text = error.name == nullptr ? "unknown error" : error.name;
  if (error.message != nullptr) text.append(": ").append(error.message);
  return text;
}

std::string describe(int negativeErrno) { return std::strerror(-negativeErrno); }

bool sendQueued(sd_bus* bus, milliseconds limit) {
  const auto deadline = steady_clock::now() + limit;
  while (queuedMessages(bus) > 0) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    if (left <= milliseconds(0)) return false;
    waitUntilWritable(bus, left);
    if (sd_bus_process(bus, nullptr) < 0) return false;
  }
  return true;
}

}  // namespace norra::linux_desktop
