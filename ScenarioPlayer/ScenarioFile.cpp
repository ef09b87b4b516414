
#include "ScenarioPlayer/ScenarioFile.h"

#include "ScenarioPlayer/DesktopReading.h"
#include "ScenarioPlayer/StepReading.h"

namespace norra::scenario {
namespace {

ScenarioFile readFile(const nlohmann::json& json) {
  const JsonMembers file(JsonCursor(json), {"applications", "elements", "frontmost", "screen", "nothingAtPosition",
                                            "eventTap", "roleDescriptions", "steps"});
  const auto references = readReferences(file);
  ScenarioFile scenario{readDesktop(file, references), {}};
  if (file.has("steps")) scenario.steps = readSteps(file["steps"], references);
  return scenario;
}

}  // namespace

std::variant<ScenarioFile, ScenarioFault> readScenario(std::string_view text) {
  try {
    return readFile(parseJson(text));
  } catch (const ScenarioFault& fault) {
    return fault;
  }
}

}  // namespace norra::scenario
