#pragma once

#include "Platform/Platform.h"

namespace norra {

/// The service process over one platform: starts the loggers, accepts connections and serves them until the process is
/// to end. Main thread. Returns the exit status.
int runService(const Platform& platform);

}  // namespace norra
