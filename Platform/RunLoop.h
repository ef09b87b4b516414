// The main run loop, delayed work on it, and serial executors beside it.
//
// Confinement takes the place of locks. Everything that hears from the desktop runs on the main thread, one job at a
// time; everything that decides the order of reports runs on an executor. An executor may wait for the main thread,
// which is how it makes and lets go of what belongs there. The main thread waits for no executor, so that there is no
// circle in which both could wait.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace norra {

using Job = std::function<void()>;

/// A scheduled run of delayed work. Letting go of it does not cancel it.
class DispatchWorkItem {
 public:
  virtual ~DispatchWorkItem() = default;
  /// The work will not run; nothing happens if it ran already. Main thread.
  virtual void cancel() = 0;
};

/// The loop of the main thread. Jobs run one at a time, in the order in which they were posted.
class MainRunLoop {
 public:
  virtual ~MainRunLoop() = default;

  /// Any thread.
  virtual void post(Job job) = 0;

  /// Runs the job once, on the main thread, when the delay has passed. Main thread.
  virtual std::shared_ptr<DispatchWorkItem> postAfter(std::chrono::nanoseconds delay, Job job) = 0;

  /// Runs the job on the main thread and returns when it has run; at once when this is the main thread. The main
  /// thread itself never waits for an executor, so an executor may wait here.
  virtual void runAndWait(const Job& job) = 0;

  /// Whether the caller is on the main thread.
  virtual bool isCurrent() const = 0;
};

/// Runs jobs one at a time, first in, first out. Destruction lets a running job end and drops the others.
class SerialExecutor {
 public:
  virtual ~SerialExecutor() = default;
  /// Any thread.
  virtual void post(Job job) = 0;
  /// The same for a job that may be dropped, which the platform counts: it is where a great many wait. Any thread.
  virtual void postUnlessCrowded(Job job) = 0;
  /// Whether the caller runs in a job of this executor.
  virtual bool isCurrent() const = 0;
};

/// Where executors come from.
class SerialExecutors {
 public:
  virtual ~SerialExecutors() = default;
  virtual std::shared_ptr<SerialExecutor> createSerialExecutor() = 0;
};

/// The time of day.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Any thread.
  virtual std::chrono::system_clock::time_point now() const = 0;
};

}  // namespace norra
