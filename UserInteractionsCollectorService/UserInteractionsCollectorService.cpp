#include "UserInteractionsCollectorService/UserInteractionsCollectorService.h"

#include <utility>

#include "NorraBase/Text.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"

namespace norra {
namespace {

constexpr std::string_view notStarted = "Collector is not started";

DataCollector::CollectedData forwardTo(std::shared_ptr<ClientProtocol> client, const Clock& clock) {
  return [client = std::move(client), &clock](std::string bytes, bool isApplicationEvent) {
    if (isValidUTF8(bytes)) client->addEvent(std::move(bytes), clock.now(), isApplicationEvent);
  };
}

}  // namespace

UserInteractionsCollectorService::UserInteractionsCollectorService(const Platform& platform,
                                                                   std::shared_ptr<NSXPCConnection> connection)
    : platform_(platform), connection_(std::move(connection)) {}

void UserInteractionsCollectorService::startCollectorWith(const ServiceReply& reply) {
  if (collector_) {
    serviceLogger().info("Collector is already running");
    return reply("");
  }
  serviceLogger().info("Starting collector");
  auto client = connection_->remoteObjectProxy(
      [](const std::string& description) { serviceLogger().error("Connection error: " + description); });
  if (!client) {
    serviceLogger().error("Failed to create client connection");
    return reply("Failed to create the client connection proxy");
  }
  collector_ = DataCollector::createWithData(platform_, forwardTo(std::move(client), platform_.clock));
  xpcTransaction_.emplace(platform_.process);
  reply("");
  collector_->start();
}

void UserInteractionsCollectorService::stopCollectorWith(const ServiceReply& reply) {
  if (!collector_) {
    serviceLogger().info("Collector already stopped");
    return reply("");
  }
  serviceLogger().info("Stopping collector");
  const auto collector = std::exchange(collector_, nullptr);
  xpcTransaction_.reset();
  reply("");
  collector->stop([&process = platform_.process] { process.exit(0); });
}

void UserInteractionsCollectorService::pauseCollectorWith(const ServiceReply& reply) {
  if (!collector_) return reply(notStarted);
  serviceLogger().info("Pausing collector");
  reply("");
  collector_->stop();
}

void UserInteractionsCollectorService::resumeCollectorWith(const ServiceReply& reply) {
  if (!collector_) return reply(notStarted);
  serviceLogger().info("Resuming collector");
  reply("");
  collector_->start();
}

}  // namespace norra
