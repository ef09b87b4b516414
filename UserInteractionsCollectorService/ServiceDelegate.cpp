#include "UserInteractionsCollectorService/ServiceDelegate.h"

#include "UserInteractionsCollectorService/ServiceEntry.h"
#include "UserInteractionsCollectorService/UserInteractionsCollectorService.h"

namespace norra {

ServiceDelegate::ServiceDelegate(const Platform& platform) : platform_(platform) {}

ServiceDelegate::~ServiceDelegate() = default;

bool ServiceDelegate::shouldAcceptNewConnection(std::shared_ptr<NSXPCConnection> connection) {
  const auto service = std::make_shared<UserInteractionsCollectorService>(platform_, connection);
  services_.push_back(service);
  connection->setExportedObject(service);
  connection->setInvalidationHandler([this, service = service.get()] { connectionWasInvalidated(service); });
  connection->setInterruptionHandler([] { serviceLogger().warning("Connection was interrupted."); });
  connection->activate();
  return true;
}

void ServiceDelegate::connectionWasInvalidated(const UserInteractionsCollectorService* service) {
  serviceLogger().warning("Connection was invalidated.");
  std::erase_if(services_, [&](const auto& other) { return other.get() == service && !other->hasCollector(); });
}

}  // namespace norra
