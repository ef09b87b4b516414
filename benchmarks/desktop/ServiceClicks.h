// Clicks as a client of the service receives them.
#pragma once

#include "benchmarks/desktop/Hands.h"
#include "benchmarks/desktop/Samples.h"

namespace norra::benchmarks {

/// "total": from the release of the button to the receipt of the report. "delivery": of that, what followed the
/// handing of the report to the proxy of the client. The service runs, and is not stopped.
Samples clickWithService(Hands& hands, int clicks);

/// "input": from the release of the button until a program that observes input as the service does knows the place.
Samples clickWithInputOnly(Hands& hands, int clicks);

/// "start": from the call that makes the bus start the service to the first report; the service is stopped again.
Samples startService(int times);

}  // namespace norra::benchmarks
