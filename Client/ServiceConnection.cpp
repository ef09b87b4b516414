#include "Client/ServiceConnection.h"

#include <string_view>
#include <utility>

namespace norra {

using linux_desktop::describe;
using linux_desktop::disconnectionMatch;
using linux_desktop::MessagePtr;

namespace {

/// Of an answer, the time that the bus takes to start the service included.
constexpr std::uint64_t answerLimitMicroseconds = 30'000'000;

std::string ownerChangeMatch() {
  return std::string(
             "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
             "member='NameOwnerChanged',arg0='") +
         busNames::service + "',arg2=''";
}

std::string problemOf(const sd_bus_error& error) {
  if (std::string_view(error.name) == SD_BUS_ERROR_SERVICE_UNKNOWN) {
    return std::string("The service is not running, and the session bus does not know how to start ") +
           busNames::service + ". Install it, or start norra-collector-service in this session, and try again.";
  }
  return "The service cannot be reached: " + describe(error);
}

std::string problemIn(sd_bus_message* reply) {
  if (const auto* error = sd_bus_message_get_error(reply)) return problemOf(*error);
  const char* text = nullptr;
  const int result = sd_bus_message_read(reply, "s", &text);
  return result < 0 ? "The service gave an answer of another kind: " + describe(result) : text;
}

}  // namespace

const sd_bus_vtable ServiceConnection::methods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS(busNames::addEvent, SD_BUS_ARGS("s", event, "t", date, "b", isApplicationEvent),
                            SD_BUS_NO_RESULT, onAddEvent, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

ServiceConnection::Opened ServiceConnection::open(linux_desktop::EventLoop& loop, Handlers handlers) {
  auto [bus, problem] = linux_desktop::openSessionBus(loop.event(), "client");
  if (!bus) return {nullptr, problem};
  std::unique_ptr<ServiceConnection> connection(new ServiceConnection(std::move(bus), std::move(handlers)));
  const int result = connection->exportClient();
  if (result < 0) return {nullptr, "The session bus does not serve this client: " + describe(result)};
  return {std::move(connection), {}};
}

int ServiceConnection::exportClient() {
  sd_bus_slot* slot = nullptr;
  int result =
      sd_bus_add_object_vtable(bus_.get(), &slot, busNames::clientPath, busNames::clientInterface, methods, this);
  if (result < 0) return result;
  object_.reset(slot);
  result = sd_bus_add_match(bus_.get(), &slot, ownerChangeMatch().c_str(), onOwnerChanged, this);
  if (result < 0) return result;
  ownerChanges_.reset(slot);
  result = sd_bus_add_match(bus_.get(), &slot, disconnectionMatch, onDisconnected, this);
  if (result >= 0) disconnection_.reset(slot);
  return result;
}

void ServiceConnection::call(const char* method, Answer answer) {
  sd_bus_message* message = nullptr;
  int result = sd_bus_message_new_method_call(bus_.get(), &message, busNames::service, busNames::servicePath,
                                              busNames::serviceInterface, method);
  const MessagePtr owned(message);
  calls_.push_back({*this, std::move(answer), nullptr});
  sd_bus_slot* slot = nullptr;
  if (result >= 0) {
    result = sd_bus_call_async(bus_.get(), &slot, message, onReply, &calls_.back(), answerLimitMicroseconds);
  }
  calls_.back().reply.reset(slot);
  if (result < 0) takeAnswer(calls_.back())("The service cannot be called: " + describe(result));
}

ServiceConnection::Answer ServiceConnection::takeAnswer(Call& call) {
  auto answer = std::move(call.answer);
  calls_.remove_if([&](const Call& other) { return &other == &call; });
  return answer;
}

int ServiceConnection::onAddEvent(sd_bus_message* call, void* self, sd_bus_error*) noexcept {
  const char* event = nullptr;
  std::uint64_t date = 0;
  int isApplicationEvent = 0;
  const int result = sd_bus_message_read(call, "stb", &event, &date, &isApplicationEvent);
  if (result < 0) return result;
  const auto time = std::chrono::system_clock::time_point(std::chrono::microseconds(date));
  static_cast<ServiceConnection*>(self)->handlers_.report({event, time, isApplicationEvent != 0});
  return sd_bus_reply_method_return(call, "");
}

int ServiceConnection::onReply(sd_bus_message* reply, void* self, sd_bus_error*) noexcept {
  auto& call = *static_cast<Call*>(self);
  call.connection.takeAnswer(call)(problemIn(reply));
  return 1;
}

int ServiceConnection::onOwnerChanged(sd_bus_message*, void* self, sd_bus_error*) noexcept {
  static_cast<ServiceConnection*>(self)->handlers_.serviceEnded();
  return 0;
}

int ServiceConnection::onDisconnected(sd_bus_message*, void* self, sd_bus_error*) noexcept {
  static_cast<ServiceConnection*>(self)->handlers_.busLost();
  return 0;
}

}  // namespace norra
