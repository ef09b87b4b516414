#include "Platform/Linux/BusConnection.h"

#include <utility>

#include "Platform/Linux/ClientProxy.h"

namespace norra::linux_desktop {

BusConnection::BusConnection(EventLoop& loop, ClientDelivery::Client client)
    : loop_(loop), client_(std::move(client)) {}

std::shared_ptr<ClientProtocol> BusConnection::remoteObjectProxy(ClientDelivery::ErrorHandler errorHandler) {
  if (!isClientObjectUsable_) return nullptr;
  return std::make_shared<ClientProxy>(loop_, client_, std::move(errorHandler));
}

void BusConnection::invalidate() {
  isActive_ = false;
  interrupted_ = nullptr;
  if (const auto handler = std::exchange(invalidated_, nullptr)) handler();
  exportedObject_.reset();
}

void BusConnection::interrupt() {
  if (interrupted_) interrupted_();
}

}  // namespace norra::linux_desktop
