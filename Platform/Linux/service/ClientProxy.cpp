#include "Platform/Linux/service/ClientProxy.h"

#include <utility>

namespace norra::linux_desktop {

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
