// What a client may ask of the service.
#pragma once

#include <functional>
#include <string_view>

namespace norra {

/// Receives "" on success, otherwise a message for a log or a person. Called exactly once, before the operation
/// returns and before what was asked for has taken full effect.
using ServiceReply = std::function<void(std::string_view message)>;

/// Implemented by the service, called by the client; one call at a time for each connection.
class ServiceProtocol {
 public:
  virtual ~ServiceProtocol() = default;

  /// Begins collecting and reporting to the calling client.
  virtual void startCollectorWith(const ServiceReply& reply) = 0;
  /// Stops collecting; the service process then ends.
  virtual void stopCollectorWith(const ServiceReply& reply) = 0;
  /// Lets go of the event sources but keeps the collector.
  virtual void pauseCollectorWith(const ServiceReply& reply) = 0;
  /// Starts the event sources of a paused collector again.
  virtual void resumeCollectorWith(const ServiceReply& reply) = 0;
};

}  // namespace norra
