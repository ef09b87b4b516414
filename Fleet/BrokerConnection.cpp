#include "Fleet/BrokerConnection.h"

#include <mosquitto.h>
#include <mqtt_protocol.h>
#include <sys/epoll.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace norra::fleet {
namespace {

using linux_desktop::EventLoop;

constexpr int qualityOfService = 1;
constexpr int keepAliveSeconds = 30;
constexpr int packetsAtOnce = 100;

}  // namespace

void BrokerConnection::Free::operator()(mosquitto* handle) const noexcept { mosquitto_destroy(handle); }

BrokerConnection::BrokerConnection(EventLoop& loop, const std::string& socket, const Message& lastWill, Events events)
    : loop_(loop), events_(std::move(events)), handle_(mosquitto_new(nullptr, true, this)) {
  setCallbacks();
  // Earlier versions of the protocol acknowledge what nobody gets, too.
  mosquitto_int_option(handle_.get(), MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
  mosquitto_max_inflight_messages_set(handle_.get(), 0);  // the caller limits them
  mosquitto_will_set(handle_.get(), lastWill.topic.c_str(), static_cast<int>(lastWill.text.size()),
                     lastWill.text.data(), qualityOfService, lastWill.isRetained);
  constexpr int noPort = 0;
  const int result = mosquitto_connect(handle_.get(), socket.c_str(), noPort, keepAliveSeconds);
  if (result == MOSQ_ERR_SUCCESS) {
    watchSocket();
    return;
  }
  endLater(result == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(result));
}

void BrokerConnection::setCallbacks() {
  using Properties = const mosquitto_property*;
  mosquitto_connect_v5_callback_set(handle_.get(), [](mosquitto*, void* self, int refusal, int, Properties) {
    auto& connection = *static_cast<BrokerConnection*>(self);
    refusal == 0 ? connection.events_.connected() : connection.endLater(mosquitto_reason_string(refusal));
  });
  mosquitto_publish_v5_callback_set(handle_.get(), [](mosquitto*, void* self, int number, int reason, Properties) {
    const auto& events = static_cast<BrokerConnection*>(self)->events_;
    reason == 0 ? events.acknowledged(number) : events.refused(number, mosquitto_reason_string(reason));
  });
}

void BrokerConnection::watchSocket() {
  sd_event_source* source = nullptr;
  sd_event_add_io(loop_.event(), &source, mosquitto_socket(handle_.get()), EPOLLIN | EPOLLOUT, onSocket, this);
  source_.reset(source);
}

/// What fills the socket is written when there is room.
void BrokerConnection::updateWatch() {
  const std::uint32_t events = mosquitto_want_write(handle_.get()) ? EPOLLIN | EPOLLOUT : EPOLLIN;
  if (source_) sd_event_source_set_io_events(source_.get(), events);
}

/// The owner may let go of this in its handler, which may not happen in a callback of the library.
void BrokerConnection::endLater(const std::string& reason) {
  if (std::exchange(hasEnded_, true)) return;
  source_.reset();
  loop_.post([weak = std::weak_ptr(isAlive_), this, reason] {
    if (!weak.expired()) events_.ended(reason);
  });
}

int BrokerConnection::onSocket(sd_event_source*, int, std::uint32_t events, void* self) noexcept {
  auto& connection = *static_cast<BrokerConnection*>(self);
  auto* handle = connection.handle_.get();
  int result = MOSQ_ERR_SUCCESS;
  if ((events & EPOLLOUT) != 0) result = mosquitto_loop_write(handle, packetsAtOnce);
  if (result == MOSQ_ERR_SUCCESS && (events & ~EPOLLOUT) != 0) result = mosquitto_loop_read(handle, packetsAtOnce);
  if (result != MOSQ_ERR_SUCCESS) connection.endLater(mosquitto_strerror(result));
  connection.updateWatch();
  return 0;
}

std::optional<int> BrokerConnection::publish(const Message& message) {
  int number = 0;
  const int result = hasEnded_ ? MOSQ_ERR_NO_CONN
                               : mosquitto_publish(handle_.get(), &number, message.topic.c_str(),
                                                   static_cast<int>(message.text.size()), message.text.data(),
                                                   qualityOfService, message.isRetained);
  updateWatch();
  if (result == MOSQ_ERR_SUCCESS) return number;
  endLater(mosquitto_strerror(result));
  return std::nullopt;
}

void BrokerConnection::keepAlive() {
  if (hasEnded_) return;
  const int result = mosquitto_loop_misc(handle_.get());
  if (result != MOSQ_ERR_SUCCESS) endLater(mosquitto_strerror(result));
  updateWatch();
}

void BrokerConnection::sayFarewell() { mosquitto_disconnect(handle_.get()); }

}  // namespace norra::fleet
