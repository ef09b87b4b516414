// What happens in a scenario, step by step.
#pragma once

#include "ScenarioPlayer/AttributeReading.h"
#include "ScenarioPlayer/ScenarioFile.h"

namespace norra::scenario {

std::vector<Step> readSteps(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
