#include "Platform/Linux/runtime/BusWaiting.h"

#include <utility>

namespace norra::linux_desktop {
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
