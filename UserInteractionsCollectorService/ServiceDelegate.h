// Who may connect, and what for: every program of this user, each to an object of its own. Nothing of a client is
// looked at; what may be asked of the service is the same for all.
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
