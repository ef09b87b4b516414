#pragma once

#include <memory>
#include <vector>

#include "Platform/Platform.h"

namespace norra {

class UserInteractionsCollectorService;

/// Accepts every connection and gives each a service object of its own. A service object that collects outlives its
/// connection. On the thread of the connections.
class ServiceDelegate : public NSXPCListenerDelegate {
 public:
  explicit ServiceDelegate(const Platform& platform);
  ~ServiceDelegate() override;

  bool shouldAcceptNewConnection(std::shared_ptr<NSXPCConnection> connection) override;

 private:
  void connectionWasInvalidated(const UserInteractionsCollectorService* service);

  Platform platform_;
  std::vector<std::shared_ptr<UserInteractionsCollectorService>> services_;
};

}  // namespace norra
