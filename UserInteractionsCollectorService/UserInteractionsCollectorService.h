// The object that the service exports to one client.
//
// It lives as long as its connection, and longer while it collects. Every request is answered before what it asks for
// has taken place: start and stop run on the collector's executor, and what comes of them is seen in the reports. A
// stop ends the process, and with it the collections of all other clients.
#pragma once

#include <memory>
#include <optional>

#include "NorraDataCollector/DataCollector.h"
#include "NorraUserInteractionsCollectorServiceProtocol/ServiceProtocol.h"
#include "Platform/Connection.h"
#include "Platform/Platform.h"

namespace norra {

/// Keeps the process marked as busy for as long as it exists.
class XPCTransaction {
 public:
  explicit XPCTransaction(ProcessServices& process) : process_(process) { process_.beginTransaction(); }
  ~XPCTransaction() { process_.endTransaction(); }
  XPCTransaction(const XPCTransaction&) = delete;
  XPCTransaction& operator=(const XPCTransaction&) = delete;

 private:
  ProcessServices& process_;
};

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
