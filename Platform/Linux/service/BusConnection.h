// One client's connection over the session bus.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "NorraUserInteractionsCollectorServiceProtocol/ClientProtocol.h"
#include "Platform/Connection.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/service/ClientDelivery.h"

namespace norra::linux_desktop {

/// Main thread.
class BusConnection final : public NSXPCConnection {
 public:
  /// `loop` outlives this and its proxies.
  BusConnection(EventLoop& loop, ClientDelivery::Client client);

  void setExportedObject(std::shared_ptr<ServiceProtocol> object) override { exportedObject_ = std::move(object); }
  void setInvalidationHandler(std::function<void()> handler) override { invalidated_ = std::move(handler); }
  void setInterruptionHandler(std::function<void()> handler) override { interrupted_ = std::move(handler); }
  void activate() override { isActive_ = true; }
  std::shared_ptr<ClientProtocol> remoteObjectProxy(ClientDelivery::ErrorHandler errorHandler) override;

  /// Whether the client's exported object was found usable when it was last looked at.
  void setClientObjectUsable(bool usable) { isClientObjectUsable_ = usable; }

  /// What answers the client's calls; null while the connection is not active.
  std::shared_ptr<ServiceProtocol> exportedObject() const { return isActive_ ? exportedObject_ : nullptr; }

  /// The client has gone: tells so, and lets go.
  void invalidate();
  /// The way to the client broke: tells so.
  void interrupt();
  /// Lets go of the exported object and of both handlers.
  void letGo();

 private:
  EventLoop& loop_;
  const ClientDelivery::Client client_;
  bool isClientObjectUsable_ = true;
  bool isActive_ = false;
  std::shared_ptr<ServiceProtocol> exportedObject_;
  std::function<void()> invalidated_;
  std::function<void()> interrupted_;
};

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
