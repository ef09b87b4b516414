#include "Client/Collection.h"

#include <utility>

namespace norra {
namespace {

/// Of the service's end after it agreed to stop.
constexpr std::chrono::seconds endLimit{10};

}  // namespace

Collection::Collection(linux_desktop::EventLoop& loop, Output output) : loop_(loop), output_(std::move(output)) {}

Outcome Collection::run(std::optional<std::chrono::nanoseconds> duration) {
  duration_ = duration;
  loop_.onTerminationSignals([this] { stopOrEnd(); });
  auto [service, problem] =
      ServiceConnection::open(loop_, {
                                         .report = [this](const Report& report) { received(report); },
                                         .serviceEnded = [this] { serviceEnded(); },
                                         .busLost = [this] { end(Outcome::endedEarly, "The session bus was lost."); },
                                     });
  if (!service) {
    output_.message(problem);
    return Outcome::unreachable;
  }
  service_ = std::move(service);
  service_->start([this](const std::string& startProblem) { started(startProblem); });
  return static_cast<Outcome>(loop_.run().value_or(0));
}

void Collection::started(const std::string& problem) {
  if (!problem.empty()) return end(Outcome::unreachable, problem);
  state_ = State::collecting;
  if (isStopRequested_) return stop();
  output_.started();
  if (isPaused_) askForPause();
  if (duration_) loop_.postAfter(*duration_, [this] { stop(); });
}

void Collection::stopOrEnd() {
  if (std::exchange(isStopRequested_, true)) {
    return end(Outcome::endedEarly, "Ended without waiting for the service.");
  }
  stop();
}

void Collection::stop() {
  isStopRequested_ = true;
  if (state_ != State::collecting) return;  // later, or already
  state_ = State::stopping;
  service_->stop([this](const std::string& problem) { stopped(problem); });
}

void Collection::stopped(const std::string& problem) {
  if (!problem.empty()) return end(Outcome::endedEarly, problem);
  loop_.postAfter(endLimit, [this] { end(Outcome::endedEarly, "The service agreed to stop but does not end."); });
}

void Collection::setPaused(bool isPaused) {
  if (std::exchange(isPaused_, isPaused) != isPaused && state_ == State::collecting) askForPause();
}

void Collection::askForPause() {
  const auto done = [this, isPaused = isPaused_](const std::string& problem) {
    const auto* const success = isPaused ? "Paused; p or SIGUSR2 goes on." : "Collecting again; p or SIGUSR1 pauses.";
    output_.message(problem.empty() ? success : problem);
  };
  isPaused_ ? service_->pause(done) : service_->resume(done);
}

void Collection::received(const Report& report) {
  if (!wantsReports_) return;
  const auto reception = output_.report(report);
  if (reception == Reception::closed) outputClosed();
  if (reception == Reception::enough) {
    wantsReports_ = false;
    stop();
  }
}

void Collection::outputClosed() {
  wantsReports_ = false;
  if (!std::exchange(canWrite_, false)) return;
  output_.message("Nobody reads the reports any more.");
  stop();
}

void Collection::serviceEnded() {
  if (state_ == State::starting) return;  // the answer to the start tells more
  if (state_ == State::collecting) {
    return end(Outcome::endedEarly, "The service ended while it was collecting. Another client may have stopped it.");
  }
  end(canWrite_ ? Outcome::complete : Outcome::endedEarly);
}

void Collection::end(Outcome outcome, const std::string& problem) {
  if (!problem.empty()) output_.message(problem);
  loop_.end(static_cast<int>(outcome));
}

}  // namespace norra
