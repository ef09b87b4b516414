
#include "UserInteractionsCollectorService/ServiceEntry.h"

#include "NorraLogging/NorraOSLogger.h"
#include "UserInteractionsCollectorService/ServiceDelegate.h"

namespace norra {

std::optional<int> runService(const std::function<Platform()>& startPlatform) {
  auto& logger = serviceLogger();
  logger.changeLogLevel(3);
  logger.changeLogState(1);
  logger.info("Service started");
  const auto platform = startPlatform();
  platform.process.setAutomaticTerminationSupportEnabled(true);
  ServiceDelegate serviceDelegate(platform);
  platform.listener.setDelegate(&serviceDelegate);
  if (const auto status = platform.listener.activate()) return status;
  logger.info("Service stopped");
  return std::nullopt;
}

NorraOSLogger& serviceLogger() {
  static const auto logger =
      NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), "UserInteractionsCollectorService", "X");
  return *logger;
}

}  // namespace norra
