#pragma once

#include "ScenarioPlayer/References.h"
#include "ScenarioPlayer/ScenarioFile.h"

namespace norra::scenario {

std::vector<Step> readSteps(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
