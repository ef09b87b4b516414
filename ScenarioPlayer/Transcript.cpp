#include "ScenarioPlayer/Transcript.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "NorraLogging/NorraOSLogger.h"

namespace norra::scenario {

/// The members of one line, in the order in which they are added.
class Transcript::Line {
 public:
  Line& add(std::string_view key, std::string_view text) { return addJson(key, jsonText(text)); }
  Line& addJson(std::string_view key, std::string_view json) {
    members_ += (members_.empty() ? "" : ",") + jsonText(key) + ":" + std::string(json);
    return *this;
  }
  std::string object() const { return "{" + members_ + "}"; }
  const std::string& members() const { return members_; }

 private:
  std::string members_;
};

std::string jsonText(std::string_view text) {
  using nlohmann::json;
  return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string secondsText(std::chrono::nanoseconds time) {
  constexpr std::int64_t perSecond = 1'000'000'000;
  auto text = std::to_string(time.count() / perSecond);
  const auto fraction = time.count() % perSecond;
  if (fraction == 0) return text;
  const auto digits = std::to_string(perSecond + fraction).substr(1);
  return text + "." + digits.substr(0, digits.find_last_not_of('0') + 1);
}

void Transcript::write(const LogMessage& message) {
  if (message.category == clickCategory) return;
  const bool isLast = std::exchange(isLastMessageNext_, false);
  print(Line().add("log", name(message.level)).add("category", message.category).add("message", message.text));
  hasEnded_ |= isLast;
}

void Transcript::processDidExit(int status) {
  print(Line().addJson("exit", std::to_string(status)));
  hasEnded_ = true;
}

void Transcript::printReply(std::string_view client, std::string_view operation, std::string_view reply) {
  print(Line().add("client", client).add("operation", operation).add("reply", reply));
}

void Transcript::printEvent(std::string_view client, std::string_view event, bool isApplicationEvent) {
  print(Line()
            .add("client", client)
            .add("event", event)
            .addJson("isApplicationEvent", isApplicationEvent ? "true" : "false"));
}

void Transcript::printCalls(const simulated::PrimitiveCalls& calls) {
  Line counts;
  for (const auto& [primitive, count] : calls) counts.addJson(primitive, std::to_string(count));
  print(Line().addJson("calls", counts.object()));
}

void Transcript::printTransaction(std::string_view edge) { print(Line().add("transaction", edge)); }

void Transcript::print(const Line& line) {
  if (isLastMessageNext_ || hasEnded_) return;
  out_ << "{\"t\":" << secondsText(scheduler_.elapsed()) << ',' << line.members() << "}\n";
}

}  // namespace norra::scenario
