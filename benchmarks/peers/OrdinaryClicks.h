// The ordinary way: a client with libatspi that asks for one fact after the other.
#pragma once

#include "benchmarks/desktop/Hands.h"
#include "benchmarks/desktop/Samples.h"
#include "benchmarks/desktop/Target.h"

namespace norra::benchmarks {

/// "total": from the release of the button to the last answer, for the facts that clickWithBareCalls asks for; the
/// window is known. libatspi's cache, which is on, is empty before each click: a person seldom clicks a thing twice.
Samples clickWithLibrary(Hands& hands, int clicks, const Target& target, const WayToAsk& way);

/// The same where the facts of the element and of its first five ancestors are asked for, as a client does that looks
/// at what it finds only afterwards.
Samples clickWithLibraryAskingAll(Hands& hands, int clicks, const Target& target, WayToAsk way);

}  // namespace norra::benchmarks
