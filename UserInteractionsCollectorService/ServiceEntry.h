#pragma once

#include <functional>
#include <optional>

#include "NorraLogging/NorraOSLogger.h"
#include "Platform/Platform.h"

namespace norra {

/// The service process over one platform: starts the loggers, accepts connections and serves them until the process is
/// to end. The platform is asked for once, when the first line of the log is written, so that whatever it has to log
/// follows. Main thread. Gives the status that the process was told to exit with; nothing when it ended by itself,
/// which the log says.
std::optional<int> runService(const std::function<Platform()>& startPlatform);

/// The logger of the service host. Any thread.
NorraOSLogger& serviceLogger();

}  // namespace norra
