// One run of norra-collect: from the start of collection to the service's last report.
//
// A run may end for four reasons: the person asks for it, the time is over, enough was printed, or nobody can read what
// is printed. In each the service is asked to stop and its last reports are awaited, since a text that is being typed
// is told at the end. What comes to an end by itself, the service or the bus, ends the run at once and is said.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Client/ServiceConnection.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

/// How a run came to its end; the values are the exit statuses of the program.
enum class Outcome {
  complete = 0,     // the service was asked to stop and gave its last report
  unreachable = 1,  // there is no service to collect from
  endedEarly = 3,   // the service or the bus went away, or the reports could not be written
};

/// What became of a report.
enum class Reception {
  goOn,
  enough,  // no more are wanted
  closed,  // no more can be written
};

/// Main thread.
class Collection {
 public:
  struct Output {
    std::function<Reception(const Report&)> report;
    /// For the person who runs the program.
    std::function<void(const std::string& text)> message;
    /// The service collects.
    std::function<void()> started;
  };

  /// `loop` outlives this.
  Collection(linux_desktop::EventLoop& loop, Output output);
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;

  /// Collects until the duration has passed or a signal asks to end. A second signal does not wait for the service.
  Outcome run(std::optional<std::chrono::nanoseconds> duration);

  /// While the collection runs, or when it begins to.
  void setPaused(bool isPaused);
  bool isPaused() const { return isPaused_; }

  /// The reports cannot be written any more: asks the service to stop.
  void outputClosed();

 private:
  enum class State { starting, collecting, stopping };

  void started(const std::string& problem);
  void stopOrEnd();
  void stop();
  void stopped(const std::string& problem);
  void askForPause();
  void received(const Report& report);
  void serviceEnded();
  void end(Outcome outcome, const std::string& problem = {});

  linux_desktop::EventLoop& loop_;
  const Output output_;
  std::optional<std::chrono::nanoseconds> duration_;
  std::unique_ptr<ServiceConnection> service_;
  State state_ = State::starting;
  bool isStopRequested_ = false;
  bool isPaused_ = false;
  bool wantsReports_ = true;
  bool canWrite_ = true;
};

}  // namespace norra
