#include "Platform/Linux/runtime/PlatformLogger.h"

#include <string>

#include "NorraLogging/NorraOSLogger.h"

namespace norra::linux_desktop {

NorraOSLogger& platformLogger() {
  static const auto logger = NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), "LinuxPlatform", "L");
  return *logger;
}

NorraOSLogger& clickLogger() {
  static const auto logger =
      NorraOSLoggerFactory::newOSLogger(std::string(mainBundleIdentifier), std::string(clickCategory), "L");
  return *logger;
}

}  // namespace norra::linux_desktop
