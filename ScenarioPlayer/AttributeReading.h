#pragma once

#include "ScenarioPlayer/References.h"

namespace norra::scenario {

simulated::Attributes readAttributes(const JsonCursor& cursor, const References& references);

}  // namespace norra::scenario
