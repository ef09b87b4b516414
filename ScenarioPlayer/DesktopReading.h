// The desktop that a file describes. It is read in two goes: first the names of everything, then what it is, since
// elements may refer to others that stand further down.
#pragma once

#include "ScenarioPlayer/AttributeReading.h"

namespace norra::scenario {

/// The names of the file's elements and applications. Faults on a process identifier that is 0 or given twice.
References readReferences(const JsonMembers& file);

/// Everything in the file but its steps.
simulated::DesktopDescription readDesktop(const JsonMembers& file, const References& references);

simulated::Screen readScreen(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
