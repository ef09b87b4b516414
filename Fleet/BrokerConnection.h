// One connection to the broker of this machine, from its beginning to its end. Another connection is another object, so
// that nothing of an old one is sent again by itself.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Linux/runtime/EventLoop.h"

struct mosquitto;

namespace norra::fleet {

struct Message {
  std::string topic;
  std::string text;
  bool isRetained = false;
};

/// Quality of service 1. Main thread.
class BrokerConnection {
 public:
  struct Events {
    Job connected;
    std::function<void(int number)> acknowledged;
    /// The broker has it and does nothing with it: nobody has subscribed, or it may not be published.
    std::function<void(int number, const std::string& reason)> refused;
    /// The last event; why, for a person.
    std::function<void(const std::string& reason)> ended;
  };

  /// Connects to the broker that listens at the socket, which publishes `lastWill` when this connection ends without a
  /// farewell. Events come from the loop only. `loop` outlives this.
  BrokerConnection(linux_desktop::EventLoop& loop, const std::string& socket, const Message& lastWill, Events events);
  BrokerConnection(const BrokerConnection&) = delete;
  BrokerConnection& operator=(const BrokerConnection&) = delete;

  /// The number by which it is acknowledged; nothing when it cannot be sent.
  std::optional<int> publish(const Message& message);
  /// To be called each second.
  void keepAlive();
  /// Ends the connection for this reason.
  void giveUp(const std::string& reason) { endLater(reason); }
  /// No last will is published.
  void sayFarewell();

 private:
  struct Free {
    void operator()(mosquitto* handle) const noexcept;
  };
  void setCallbacks();
  void watchSocket();
  void updateWatch();
  void endLater(const std::string& reason);
  static int onSocket(sd_event_source* source, int descriptor, std::uint32_t events, void* self) noexcept;

  linux_desktop::EventLoop& loop_;
  const Events events_;
  const std::unique_ptr<mosquitto, Free> handle_;
  linux_desktop::EventSourcePtr source_;
  bool hasEnded_ = false;
  std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

}  // namespace norra::fleet
