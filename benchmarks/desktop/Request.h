// What a program of the benchmark is asked to measure on the desktop that it runs in: WHAT COUNT [X Y WAY]. With
// "-at-rest" at the end of WHAT it reads without a click.
#pragma once

#include <optional>

#include "benchmarks/desktop/Hands.h"
#include "benchmarks/desktop/Samples.h"
#include "benchmarks/desktop/Target.h"

namespace norra::benchmarks {

struct Request {
  /// Without "-at-rest".
  std::string what;
  bool isAtRest = false;
  int count = 0;
  /// Nothing: no place on the screen was named.
  std::optional<Place> place;
  std::string way;

  Hands hands() const;
};

/// The main function of such a program: prints what was measured as JSON, or what went wrong, and gives the exit
/// status.
int answerRequest(int count, char** arguments, Samples (*measure)(const Request& request));

}  // namespace norra::benchmarks
