#include "Platform/Simulated/Scheduler.h"

namespace norra::simulated {

class Scheduler::Executor final : public SerialExecutor, public std::enable_shared_from_this<Executor> {
 public:
  explicit Executor(Scheduler& scheduler) : scheduler_(scheduler) {}

  void post(Job job) override { scheduler_.ready_.push_back({true, weak_from_this(), std::move(job)}); }
  void postUnlessCrowded(Job job) override { post(std::move(job)); }
  bool isCurrent() const override { return scheduler_.current_ == this; }

 private:
  Scheduler& scheduler_;
};

class Scheduler::WorkItem final : public DispatchWorkItem {
 public:
  explicit WorkItem(Job job) : job_(std::move(job)) {}

  void cancel() override { job_ = nullptr; }
  Job takeJob() { return std::exchange(job_, nullptr); }

 private:
  Job job_;
};

void Scheduler::post(Job job) { ready_.push_back({false, {}, std::move(job)}); }

std::shared_ptr<DispatchWorkItem> Scheduler::postAfter(std::chrono::nanoseconds delay, Job job) {
  auto item = std::make_shared<WorkItem>(std::move(job));
  delayed_.emplace(DueTime{elapsed_ + delay, scheduledCount_++}, item);
  return item;
}

void Scheduler::runAndWait(const Job& job) { runOn(nullptr, job); }

std::shared_ptr<SerialExecutor> Scheduler::createSerialExecutor() { return std::make_shared<Executor>(*this); }

std::chrono::system_clock::time_point Scheduler::now() const {
  return std::chrono::system_clock::time_point(
      std::chrono::duration_cast<std::chrono::system_clock::duration>(elapsed_));
}

void Scheduler::runReadyJobs() {
  while (!isStopped_ && !ready_.empty()) {
    auto next = std::move(ready_.front());
    ready_.pop_front();
    run(next);
  }
}

void Scheduler::advance(std::chrono::nanoseconds by) {
  const auto end = elapsed_ + by;
  while (!isStopped_ && !delayed_.empty() && delayed_.begin()->first.first <= end) {
    auto next = delayed_.extract(delayed_.begin());
    elapsed_ = next.key().first;
    if (const auto job = next.mapped()->takeJob()) job();
    runReadyJobs();
  }
  if (!isStopped_) elapsed_ = end;
}

void Scheduler::dropWaitingJobs() {
  // What a dropped job held may post again while it is let go.
  while (!ready_.empty() || !delayed_.empty()) {
    std::exchange(ready_, {}).clear();
    std::exchange(delayed_, {}).clear();
  }
}

void Scheduler::run(WaitingJob& waiting) {
  const auto executor = waiting.executor.lock();
  if (waiting.isForExecutor && !executor) return;
  runOn(executor.get(), [&waiting] { std::exchange(waiting.job, nullptr)(); });
}

void Scheduler::runOn(const Executor* executor, const Job& job) {
  const auto* const interrupted = std::exchange(current_, executor);
  job();
  current_ = interrupted;
}

}  // namespace norra::simulated
