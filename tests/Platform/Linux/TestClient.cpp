#include "tests/Platform/Linux/TestClient.h"

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"

namespace norra::linux_desktop {
namespace {

/// Longer than a test waits: an answer that does not come is not to look like one.
constexpr std::uint64_t answerLimitMicroseconds = 120'000'000;

const sd_bus_vtable objectWithoutAddEvent[] = {SD_BUS_VTABLE_START(0), SD_BUS_VTABLE_END};

}  // namespace

const sd_bus_vtable TestClient::usableObject[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("addEvent", "stb", "", onAddEvent, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

TestClient::TestClient(sd_event* event, Object object)
    : answers_(object != Object::neverAnswering), bus_(openSessionBus(event, "test client").bus) {
  sd_bus_set_method_call_timeout(bus_.get(), answerLimitMicroseconds);
  if (object == Object::none) return;
  const auto* const methods = object == Object::withoutAddEvent ? objectWithoutAddEvent : usableObject;
  sd_bus_add_object_vtable(bus_.get(), nullptr, busNames::clientPath, busNames::clientInterface, methods, this);
}

void TestClient::call(const char* method, const char* argument) {
  sd_bus_call_method_async(bus_.get(), nullptr, busNames::service, busNames::servicePath, busNames::serviceInterface,
                           method, onReply, this, argument == nullptr ? "" : "s", argument);
}

void TestClient::stopReading() { sd_bus_detach_event(bus_.get()); }

void TestClient::readAgain(sd_event* event) { sd_bus_attach_event(bus_.get(), event, SD_EVENT_PRIORITY_NORMAL); }

void TestClient::readEvents(std::size_t count, std::chrono::milliseconds limit) {
  const auto microseconds = static_cast<std::uint64_t>(std::chrono::microseconds(limit).count());
  while (events_.size() < count) {
    if (sd_bus_process(bus_.get(), nullptr) > 0) continue;
    if (sd_bus_wait(bus_.get(), microseconds) <= 0) return;
  }
}

void TestClient::vanish() { bus_.reset(); }

int TestClient::onAddEvent(sd_bus_message* call, void* self, sd_bus_error*) noexcept {
  auto& client = *static_cast<TestClient*>(self);
  const char* event = nullptr;
  std::uint64_t date = 0;
  int isApplicationEvent = 0;
  sd_bus_message_read(call, "stb", &event, &date, &isApplicationEvent);
  client.events_.push_back({event, date, isApplicationEvent != 0});
  return client.answers_ ? sd_bus_reply_method_return(call, "") : 1;
}

int TestClient::onReply(sd_bus_message* reply, void* self, sd_bus_error*) noexcept {
  auto& replies = static_cast<TestClient*>(self)->replies_;
  const char* text = nullptr;
  if (const auto* error = sd_bus_message_get_error(reply)) {
    replies.emplace_back(error->name);
  } else if (sd_bus_message_read(reply, "s", &text) >= 0) {
    replies.emplace_back(text);
  }
  return 1;
}

}  // namespace norra::linux_desktop
