// Serial executors, each on a thread of its own.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/RunLoop.h"

namespace norra::linux_desktop {

class SerialQueue;

/// Letting go of an executor does not wait for its running job, so a job or the main thread may be the last owner.
/// Nothing is posted to one after this has gone.
class SerialExecutorThreads final : public SerialExecutors {
 public:
  /// How many waiting jobs are a crowd.
  static constexpr std::size_t maxWaiting = 4096;

  /// `loop` must outlive this.
  explicit SerialExecutorThreads(EventLoop& loop) : loop_(loop) {}
  /// Waits for the running jobs, and meanwhile serves their calls of MainRunLoop::runAndWait. Main thread, after the
  /// loop has ended.
  ~SerialExecutorThreads() override;
  SerialExecutorThreads(const SerialExecutorThreads&) = delete;
  SerialExecutorThreads& operator=(const SerialExecutorThreads&) = delete;

  /// Any thread.
  std::shared_ptr<SerialExecutor> createSerialExecutor() override;

  /// The jobs that were dropped in a crowd, over all executors. The log tells of each crowd when it begins to cost
  /// jobs, and how many it cost when it is over. Any thread.
  std::uint64_t droppedJobs() const { return dropped_; }

  /// No executor begins another job from now on. Any thread.
  void close();

 private:
  class Executor;
  struct Worker {
    std::shared_ptr<SerialQueue> queue;
    std::thread thread;
  };

  void joinEndedWorkers();

  EventLoop& loop_;
  std::atomic<std::uint64_t> dropped_ = 0;
  std::mutex mutex_;
  std::vector<Worker> workers_;  // guarded by mutex_
  bool isClosed_ = false;        // guarded by mutex_
};

}  // namespace norra::linux_desktop
