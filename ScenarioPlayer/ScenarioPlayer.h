// Plays a scenario: the whole service over a desktop in memory, from the first step of the file to the end of the
// process.
#pragma once

#include <iosfwd>

#include "ScenarioPlayer/ScenarioFile.h"

namespace norra::scenario {

struct PlayingOptions {
  /// Whether each step is followed by a count of the primitives that the service called in it.
  bool printsCalls = false;
};

/// Runs the service over the desktop of the file and prints what it does. Gives the exit status of the service. Takes
/// the log over while it plays.
int playScenario(const ScenarioFile& scenario, PlayingOptions options, std::ostream& out);

}  // namespace norra::scenario
