#pragma once

#include "ScenarioPlayer/References.h"

namespace norra::scenario {

/// The names of the file's elements and applications. Faults on a process identifier that is 0 or given twice.
References readReferences(const JsonMembers& file);

/// Everything in the file but its steps.
simulated::DesktopDescription readDesktop(const JsonMembers& file, const References& references);

simulated::Screen readScreen(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
