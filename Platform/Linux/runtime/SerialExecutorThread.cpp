#include "Platform/Linux/runtime/SerialExecutorThread.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <utility>

namespace norra::linux_desktop {

/// What an executor and its thread share.
class SerialQueue {
 public:
  void push(Job job) { pushUnlessCrowded(std::move(job), SIZE_MAX); }

  /// False: so many wait already, and the job is dropped.
  bool pushUnlessCrowded(Job job, std::size_t most) {
    const std::lock_guard lock(mutex_);
    if (isClosed_) return true;
    if (jobs_.size() >= most) return false;
    jobs_.push_back(std::move(job));
    changed_.notify_one();
    return true;
  }

  /// No further job comes out; the waiting ones are dropped.
  void close() {
    std::deque<Job> dropped;  // ended after the lock, since that may run anything
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    dropped.swap(jobs_);
    changed_.notify_one();
  }

  /// Runs the jobs until the queue is closed.
  void run() {
    thread_ = std::this_thread::get_id();
    while (const auto job = next()) job();
    hasEnded_ = true;
  }

  bool hasEnded() const { return hasEnded_; }
  bool isCurrent() const { return std::this_thread::get_id() == thread_; }

 private:
  /// Empty when the queue was closed.
  Job next() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isClosed_ || !jobs_.empty(); });
    if (isClosed_) return {};
    auto job = std::move(jobs_.front());
    jobs_.pop_front();
    return job;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Job> jobs_;   // guarded by mutex_
  bool isClosed_ = false;  // guarded by mutex_
  std::atomic<std::thread::id> thread_;
  std::atomic<bool> hasEnded_ = false;
};

class SerialExecutorThreads::Executor final : public SerialExecutor {
 public:
  Executor(SerialExecutorThreads& threads, std::shared_ptr<SerialQueue> queue)
      : threads_(threads), queue_(std::move(queue)) {}
  ~Executor() override { queue_->close(); }
  Executor(const Executor&) = delete;
  Executor& operator=(const Executor&) = delete;

  void post(Job job) override { queue_->push(threads_.loop_.clickTimes().continued(std::move(job))); }
  void postUnlessCrowded(Job job) override {
    auto continued = threads_.loop_.clickTimes().continued(std::move(job));
    if (!queue_->pushUnlessCrowded(std::move(continued), mostWaiting)) ++threads_.dropped_;
  }
  bool isCurrent() const override { return queue_->isCurrent(); }

 private:
  SerialExecutorThreads& threads_;
  std::shared_ptr<SerialQueue> queue_;
};

std::shared_ptr<SerialExecutor> SerialExecutorThreads::createSerialExecutor() {
  auto queue = std::make_shared<SerialQueue>();
  const std::lock_guard lock(mutex_);
  joinEndedWorkers();
  if (isClosed_) queue->close();
  workers_.push_back({queue, std::thread([queue, &loop = loop_] {
                        queue->run();
                        loop.post([] {});  // the destructor asks again
                      })});
  return std::make_shared<Executor>(*this, std::move(queue));
}

void SerialExecutorThreads::joinEndedWorkers() {
  std::erase_if(workers_, [](Worker& worker) {
    if (!worker.queue->hasEnded()) return false;
    worker.thread.join();
    return true;
  });
}

void SerialExecutorThreads::close() {
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
  for (const auto& worker : workers_) worker.queue->close();
}

SerialExecutorThreads::~SerialExecutorThreads() {
  close();
  const auto hasEnded = [](const Worker& worker) { return worker.queue->hasEnded(); };
  loop_.serveWaitersUntil([&] { return std::ranges::all_of(workers_, hasEnded); });
  joinEndedWorkers();
}

}  // namespace norra::linux_desktop
