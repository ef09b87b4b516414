// Any text as a report: it is read or refused, and what is read is written and read again as the same.
#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"
#include "tests/fuzz/FuzzInput.h"

namespace norra::fuzz {
namespace {

void checkAction(const Action& action) {
  const auto text = encode(action);
  const auto again = decodeAction(text);
  require(std::holds_alternative<Action>(again), "what is written can be read");
  require(std::get<Action>(again) == action, "what is read again is the same");
  require(encode(std::get<Action>(again)) == text, "what is written again is the same");
}

void checkReport(std::string_view text) {
  const auto decoded = decodeAction(text);
  if (const auto* action = std::get_if<Action>(&decoded)) return checkAction(*action);
  const auto& error = std::get<DecodingError>(decoded);
  require(!error.message.empty(), "a refusal says why");
  require(!error.member || error.message.find(*error.member) != std::string::npos, "a refusal names its member");
}

}  // namespace
}  // namespace norra::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norra::fuzz::checkReport(norra::fuzz::textOf(data, size));
  return 0;
}
