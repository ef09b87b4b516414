#include "UserInteractionsCollectorService/ServiceEntry.h"

#include "UserInteractionsCollectorService/ServiceDelegate.h"
#include "UserInteractionsCollectorService/ServiceLogger.h"

namespace norra {

int runService(const Platform& platform) {
  auto& logger = serviceLogger();
  logger.changeLogLevel(3);
  logger.changeLogState(1);
  logger.info("Service started");
  platform.process.setAutomaticTerminationSupportEnabled(true);
  ServiceDelegate delegate(platform);
  platform.listener.setDelegate(&delegate);
  if (const auto status = platform.listener.activate()) return *status;
  logger.info("Service stopped");
  return 0;
}

}  // namespace norra
