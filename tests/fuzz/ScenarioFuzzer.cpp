// Any text as a scenario: it is refused, or it plays to its end, the same way each time.
#include <sstream>

#include "ScenarioPlayer/ScenarioFile.h"
#include "ScenarioPlayer/ScenarioPlayer.h"
#include "tests/fuzz/FuzzInput.h"

namespace norra::fuzz {
namespace {

constexpr std::size_t maxSize = 16'384;
constexpr std::size_t maxSteps = 200;

std::string played(const scenario::ScenarioFile& file, scenario::PlayingOptions options) {
  std::ostringstream out;
  require(scenario::playScenario(file, options, out) == 0, "the service ends well");
  return std::move(out).str();
}

void checkScenario(std::string_view text) {
  const auto read = scenario::readScenario(text);
  if (const auto* fault = std::get_if<scenario::ScenarioFault>(&read)) {
    return require(!fault->message.empty(), "a refusal says why");
  }
  const auto& file = std::get<scenario::ScenarioFile>(read);
  if (file.steps.size() > maxSteps) return;
  require(played(file, {.printsCalls = true}) == played(file, {.printsCalls = true}), "each play is the same");
}

}  // namespace
}  // namespace norra::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size <= norra::fuzz::maxSize) norra::fuzz::checkScenario(norra::fuzz::textOf(data, size));
  return 0;
}
