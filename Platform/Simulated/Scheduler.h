// One thread plays the main thread and every executor. Nothing runs by itself: jobs wait until the owner of the
// scheduler lets them run, and the clock moves only when it is told to.
//
// Real threads would give another order each time. Here there is one order, that of the posting, and one job at a time,
// so that a report that comes too early or too late is a fault of the core and never one of the day. Who may wait for
// whom is kept as on a real platform: each job knows which thread it plays.
#pragma once

#include <deque>
#include <map>
#include <utility>

#include "Platform/RunLoop.h"

namespace norra::simulated {

class Scheduler final : public MainRunLoop, public SerialExecutors, public Clock {
 public:
  void post(Job job) override;
  std::shared_ptr<DispatchWorkItem> postAfter(std::chrono::nanoseconds delay, Job job) override;
  void runAndWait(const Job& job) override;
  bool isCurrent() const override { return current_ == nullptr; }

  std::shared_ptr<SerialExecutor> createSerialExecutor() override;

  /// The scenario begins at the clock's epoch.
  std::chrono::system_clock::time_point now() const override;
  std::chrono::nanoseconds elapsed() const { return elapsed_; }

  /// Runs the jobs of the main loop and of all executors in the order in which they were posted, until none is left.
  void runReadyJobs();

  /// Moves the clock. Delayed work runs at its own time, ties in the order of scheduling, each piece followed by the
  /// jobs that it posted; work due exactly at the end runs.
  void advance(std::chrono::nanoseconds by);

  /// No job and no delayed work runs from now on; a running job ends.
  void stop() { isStopped_ = true; }

  /// Lets go of everything that still waits, without running it.
  void dropWaitingJobs();

 private:
  class Executor;
  class WorkItem;
  struct WaitingJob {
    bool isForExecutor = false;
    std::weak_ptr<Executor> executor;
    Job job;
  };
  using DueTime = std::pair<std::chrono::nanoseconds, std::uint64_t>;  // when, and the order of scheduling

  void run(WaitingJob& waiting);
  void runOn(const Executor* executor, const Job& job);

  std::deque<WaitingJob> ready_;
  std::map<DueTime, std::shared_ptr<WorkItem>> delayed_;
  std::uint64_t scheduledCount_ = 0;
  std::chrono::nanoseconds elapsed_{0};
  const Executor* current_ = nullptr;  // null: the main thread
  bool isStopped_ = false;
};

}  // namespace norra::simulated
