// The object that the service exports to one client.
#pragma once

#include <memory>
#include <optional>

#include "NorraDataCollector/DataCollector.h"
#include "NorraUserInteractionsCollectorServiceProtocol/ServiceProtocol.h"
#include "Platform/Platform.h"
#include "UserInteractionsCollectorService/XPCTransaction.h"

namespace norra {

/// Starts, stops, pauses and resumes collection, and forwards every report to the client. Its operations run one at a
/// time, on the thread of its connection.
class UserInteractionsCollectorService : public ServiceProtocol {
 public:
  UserInteractionsCollectorService(const Platform& platform, std::shared_ptr<NSXPCConnection> connection);

  void startCollectorWith(const ServiceReply& reply) override;
  /// Ends the whole process once the collector has reported its stop.
  void stopCollectorWith(const ServiceReply& reply) override;
  void pauseCollectorWith(const ServiceReply& reply) override;
  void resumeCollectorWith(const ServiceReply& reply) override;

  /// From a successful start until a stop, paused or not.
  bool hasCollector() const { return collector_ != nullptr; }

 private:
  Platform platform_;
  std::shared_ptr<NSXPCConnection> connection_;
  // Both or neither.
  std::optional<XPCTransaction> xpcTransaction_;
  std::shared_ptr<DataCollector> collector_;
};

}  // namespace norra
