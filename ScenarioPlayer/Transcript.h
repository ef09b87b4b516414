// What a scenario prints: one JSON object a line, with the time at which it happened.
#pragma once

#include <iosfwd>

#include "NorraLogging/NorraOSLogger.h"
#include "Platform/Simulated/Desktop.h"

namespace norra::scenario {

/// The text as a JSON string: slashes as they are, everything beyond ASCII as UTF-8.
std::string jsonText(std::string_view text);

/// A time as a JSON number of seconds, without digits that say nothing.
std::string secondsText(std::chrono::nanoseconds time);

class Transcript final : public LogSink, public simulated::ProcessObserver {
 public:
  /// Both must outlive the transcript.
  Transcript(std::ostream& out, const simulated::Scheduler& scheduler) : out_(out), scheduler_(scheduler) {}

  void write(const LogMessage& message) override;
  void transactionDidBegin() override { printTransaction("begin"); }
  void transactionDidEnd() override { printTransaction("end"); }
  /// The last line: nothing is printed after it.
  void processDidExit(int status) override;

  void printReply(std::string_view client, std::string_view operation, std::string_view reply);
  void printEvent(std::string_view client, std::string_view event, bool isApplicationEvent);
  void printCalls(const simulated::PrimitiveCalls& calls);

  /// One more log message is printed, and nothing else: the process ends with all that it still holds, and what a
  /// simulation has to clean up is not part of the story.
  void expectLastMessage() { isLastMessageNext_ = true; }

 private:
  class Line;
  void printTransaction(std::string_view edge);
  void print(const Line& line);

  std::ostream& out_;
  const simulated::Scheduler& scheduler_;
  bool isLastMessageNext_ = false;
  bool hasEnded_ = false;
};

}  // namespace norra::scenario
