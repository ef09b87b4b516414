#pragma once

#include <string_view>
#include <variant>

#include "ScenarioPlayer/JsonCursor.h"
#include "ScenarioPlayer/ScenarioFile.h"

namespace norra::scenario {

/// Reads the whole text of a scenario file, or gives the first fault that it came upon.
std::variant<ScenarioFile, ScenarioFault> readScenario(std::string_view text);

}  // namespace norra::scenario
