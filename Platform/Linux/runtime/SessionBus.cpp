
#include "Platform/Linux/runtime/SessionBus.h"

#include <poll.h>

#include <cstring>
#include <utility>

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

namespace {

int keepReply(sd_bus_message* message, void* reply, sd_bus_error* /*error*/) {
  static_cast<MessagePtr*>(reply)->reset(sd_bus_message_ref(message));
  return 1;
}

}  // namespace

BusPtr ready(BusPtr bus, std::chrono::steady_clock::time_point deadline) {
  const auto isReady = [&bus] { return sd_bus_is_ready(bus.get()) > 0; };
  if (bus && !serveBus(bus.get(), deadline, isReady)) bus.reset();
  return bus;
}

BusPtr openSessionBus(std::chrono::steady_clock::time_point deadline) {
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0) return nullptr;
  return ready(BusPtr(bus), deadline);
}

MessagePtr answerTo(sd_bus* bus, sd_bus_message* call, std::chrono::steady_clock::time_point deadline) {
  MessagePtr reply;
  sd_bus_slot* slot = nullptr;
  if (call == nullptr || sd_bus_call_async(bus, &slot, call, keepReply, &reply, 0) < 0) return nullptr;
  const SlotPtr pending(slot);
  const bool isAnswered = serveBus(bus, deadline, [&reply] { return reply != nullptr; });
  return isAnswered && sd_bus_message_is_method_error(reply.get(), nullptr) == 0 ? std::move(reply) : nullptr;
}

}  // namespace norra::linux_desktop
