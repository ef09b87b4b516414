#pragma once

#include "NorraLogging/NorraOSLogger.h"

namespace norra::linux_desktop {

/// The logger of this platform, category "LinuxPlatform", process type "L". Made at its first use. Any thread.
NorraOSLogger& platformLogger();

/// Says why a click was not handed on. Any thread.
NorraOSLogger& clickLogger();

}  // namespace norra::linux_desktop
