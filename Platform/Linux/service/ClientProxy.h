// A client as the core sees it: calls of addEvent that nobody waits for.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "NorraUserInteractionsCollectorServiceProtocol/ClientProtocol.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/service/ClientDelivery.h"

namespace norra::linux_desktop {

/// Calls addEvent of one client without waiting. Any thread; what it sends goes out from the main thread.
class ClientProxy final : public ClientProtocol {
 public:
  /// `loop` outlives the proxy, and the client's bus is open while the loop runs.
  ClientProxy(EventLoop& loop, ClientDelivery::Client client, ClientDelivery::ErrorHandler errorHandler);
  ~ClientProxy() override;
  ClientProxy(const ClientProxy&) = delete;
  ClientProxy& operator=(const ClientProxy&) = delete;

  void addEvent(std::string event, std::chrono::system_clock::time_point date, bool isApplicationEvent) override;

 private:
  EventLoop& loop_;
  std::shared_ptr<ClientDelivery> delivery_;  // ends on the main thread
};

}  // namespace norra::linux_desktop
