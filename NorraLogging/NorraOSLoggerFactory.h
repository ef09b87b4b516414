#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "NorraLogging/NorraOSLogger.h"

namespace norra {

/// The subsystem of the service's loggers.
inline constexpr std::string_view mainBundleIdentifier = "com.norra.UserInteractionsCollectorService";

/// The category of the loggers that say, at debug level, why a click was not reported. What they say is for whoever
/// looks for that reason; it is no part of what the service promises to log.
inline constexpr std::string_view clickCategory = "Clicks";

namespace NorraOSLoggerFactory {

/// `processType` is one character.
std::unique_ptr<NorraOSLogger> newOSLogger(std::string subsystem, std::string category, std::string processType);

/// Sends the messages of every logger to the sink from now on; null: to nowhere, as at first. The sink is not owned.
/// Any thread; the caller sees to it that no message is under way when a sink ends.
void setSink(LogSink* sink);

}  // namespace NorraOSLoggerFactory
}  // namespace norra
