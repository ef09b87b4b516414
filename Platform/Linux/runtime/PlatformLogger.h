#pragma once

#include "NorraLogging/NorraOSLogger.h"

namespace norra::linux_desktop {

/// The logger of this platform, category "LinuxPlatform", process type "L". Made at its first use. Any thread.
NorraOSLogger& platformLogger();

}  // namespace norra::linux_desktop
