#pragma once

#include "NorraLogging/NorraOSLogger.h"

namespace norra {

/// The logger of the service host. Any thread.
NorraOSLogger& serviceLogger();

}  // namespace norra
