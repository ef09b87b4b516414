#include "ScenarioPlayer/ScenarioPlayer.h"

#include "NorraLogging/NorraOSLogger.h"
#include "ScenarioPlayer/Transcript.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"

namespace norra::scenario {
namespace {

using simulated::ServiceOperation;

std::string_view name(ServiceOperation operation) {
  static constexpr std::array<std::string_view, 4> names{"start", "stop", "pause", "resume"};
  return names[static_cast<std::size_t>(operation)];
}

/// A client that prints what it receives.
class Client final : public ClientProtocol {
 public:
  Client(std::string name, Transcript& transcript) : name_(std::move(name)), transcript_(transcript) {}

  void addEvent(std::string event, std::chrono::system_clock::time_point /*date*/, bool isApplicationEvent) override {
    transcript_.printEvent(name_, event, isApplicationEvent);
  }

 private:
  std::string name_;
  Transcript& transcript_;
};

/// Does on a desktop what a step says.
class StepPlayer {
 public:
  StepPlayer(simulated::Desktop& desktop, Transcript& transcript) : desktop_(desktop), transcript_(transcript) {}

  void operator()(const Connect& step) {
    desktop_.connect(step.client, step.conforms ? std::make_shared<Client>(step.client, transcript_) : nullptr);
  }
  void operator()(const CallService& step) {
    if (!desktop_.clients().isConnected(step.client)) (*this)(Connect{step.client});
    desktop_.call(step.client, step.operation,
                  [&](std::string_view reply) { transcript_.printReply(step.client, name(step.operation), reply); });
  }
  void operator()(const Disconnect& step) { desktop_.disconnect(step.client); }
  void operator()(const Interrupt& step) { desktop_.interrupt(step.client); }
  void operator()(const Click& step) { desktop_.click(step.at, step.button); }
  void operator()(const PressKey& step) { desktop_.pressKey(step.key); }
  void operator()(const DisableTaps& step) { desktop_.disableTaps(step.reason); }
  void operator()(const Activate& step) { desktop_.activate(step.process); }
  void operator()(const SetFrontmost& step) { desktop_.setFrontmost(step.process); }
  void operator()(const Terminate& step) { desktop_.terminate(step.process); }
  void operator()(const SetElement& step) {
    desktop_.setAttributes(step.element, step.attributes);
    if (step.actions) desktop_.setActions(step.element, *step.actions);
  }
  void operator()(const Destroy& step) { desktop_.destroy(step.element); }
  void operator()(const SetScreen& step) { desktop_.setScreen(step.screen); }
  void operator()(const Notify& step) {
    if (step.isForced) {
      desktop_.forceNotification(step.element, step.notification);
    } else {
      desktop_.notify(step.element, step.notification);
    }
  }
  void operator()(const Advance& step) { desktop_.advance(step.by); }

 private:
  simulated::Desktop& desktop_;
  Transcript& transcript_;
};

class LogCapture {
 public:
  explicit LogCapture(LogSink& sink) { NorraOSLoggerFactory::setSink(&sink); }
  ~LogCapture() { NorraOSLoggerFactory::setSink(nullptr); }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;
};

void playSteps(const ScenarioFile& scenario, PlayingOptions options, simulated::Desktop& desktop,
               Transcript& transcript) {
  StepPlayer player(desktop, transcript);
  for (const auto& step : scenario.steps) {
    std::visit(player, step);
    if (desktop.process().exitStatus()) return;
    if (options.printsCalls) transcript.printCalls(desktop.accessibility().takeCalls());
  }
}

}  // namespace

int playScenario(const ScenarioFile& scenario, PlayingOptions options, std::ostream& out) {
  simulated::Desktop desktop(scenario.desktop);
  Transcript transcript(out, desktop.scheduler());
  const LogCapture capture(transcript);
  desktop.process().setObserver(&transcript);
  desktop.clients().setLoop([&] {
    playSteps(scenario, options, desktop, transcript);
    transcript.expectLastMessage();
    return desktop.process().exitStatus();
  });
  const int status = runService([&desktop] { return desktop.platform(); }).value_or(0);
  desktop.endAllWork();  // while the transcript still stands
  return status;
}

}  // namespace norra::scenario
