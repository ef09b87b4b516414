#include "Platform/Linux/service/BusConnection.h"

#include <utility>

#include "Platform/Linux/service/ClientProxy.h"

namespace norra::linux_desktop {

BusConnection::BusConnection(EventLoop& loop, ClientDelivery::Client client)
    : loop_(loop), client_(std::move(client)) {}

std::shared_ptr<ClientProtocol> BusConnection::remoteObjectProxy(ClientDelivery::ErrorHandler errorHandler) {
  if (!isClientObjectUsable_) return nullptr;
  return std::make_shared<ClientProxy>(loop_, client_, std::move(errorHandler));
}

void BusConnection::invalidate() {
  if (const auto handler = std::exchange(invalidated_, nullptr)) handler();
  letGo();
}

void BusConnection::interrupt() {
  if (interrupted_) interrupted_();
}

void BusConnection::letGo() {
  invalidated_ = nullptr;
  interrupted_ = nullptr;
  exportedObject_.reset();
}

}  // namespace norra::linux_desktop
