#pragma once

#include "NorraLogging/NorraOSLogger.h"

namespace norra::NorraDataCollectorLogging {

/// The logger of the collection engine, the accessibility layer and the click interpretation. Any thread.
NorraOSLogger& defaultLogger();

/// Says why a click was not reported. Any thread.
NorraOSLogger& clickLogger();

}  // namespace norra::NorraDataCollectorLogging
