#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

#include "NorraLogging/NorraOSLogger.h"

namespace norra::NorraDataCollectorLogging {

NorraOSLogger& defaultLogger() {
  static const auto logger = NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), "DataCollector", "C");
  return *logger;
}

NorraOSLogger& clickLogger() {
  static const auto logger =
      NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), std::string(clickCategory), "C");
  return *logger;
}

}  // namespace norra::NorraDataCollectorLogging
