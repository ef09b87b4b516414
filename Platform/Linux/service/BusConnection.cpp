
#include "Platform/Linux/service/BusConnection.h"

#include <utility>

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

ClientProxy::ClientProxy(EventLoop& loop, ClientDelivery::Client client, ClientDelivery::ErrorHandler errorHandler)
    : loop_(loop), delivery_(std::make_shared<ClientDelivery>(std::move(client), std::move(errorHandler))) {}

ClientProxy::~ClientProxy() {
  if (!loop_.isCurrent()) loop_.post([last = std::move(delivery_)] {});
}

void ClientProxy::addEvent(std::string event, std::chrono::system_clock::time_point date, bool isApplicationEvent) {
  if (!delivery_->admit(event)) return;
  auto& times = loop_.clickTimes();
  loop_.post(times.continued([&times, delivery = delivery_, event = std::move(event), date, isApplicationEvent] {
    delivery->send(event, date, isApplicationEvent);
    if (!isApplicationEvent) times.noteReport();
  }));
}

}  // namespace norra::linux_desktop
