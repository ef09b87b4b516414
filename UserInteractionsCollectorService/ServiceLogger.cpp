#include "UserInteractionsCollectorService/ServiceLogger.h"

#include "NorraLogging/NorraOSLoggerFactory.h"

namespace norra {

NorraOSLogger& serviceLogger() {
  static const auto logger =
      NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), "UserInteractionsCollectorService", "X");
  return *logger;
}

}  // namespace norra
