// The floor: the calls without which the report of a click cannot be made, in as few waves as their order allows, by a
// program that does nothing else.
#pragma once

#include "benchmarks/desktop/Hands.h"
#include "benchmarks/desktop/Samples.h"
#include "benchmarks/desktop/Target.h"

namespace norra::benchmarks {

/// "total": from the release of the button to the last answer, with the look-up of the window at the X server. What is
/// the same for each click (the accessible of the window, the ancestors) is known beforehand. "calls" and "waves" are
/// counts.
Samples clickWithBareCalls(Hands& hands, int clicks, const Target& target, const WayToAsk& way);

/// "total": from the release of the button to the answer to a single call: how long the application, busy with the
/// click itself, keeps everybody waiting.
Samples clickWithOneCall(Hands& hands, int clicks, const Target& target);

/// One call after the other to the element that is hit: "bus" over the accessibility bus, and "socket" over the socket
/// of its application where it offers one.
Samples callOverBusAndSocket(const Target& target, int calls);

}  // namespace norra::benchmarks
