#include "Platform/Linux/runtime/SerialExecutorThread.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <string>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

/// A crowd is over when so many are left of it, so that it is told of twice however long it lasts.
constexpr std::size_t maxAfterACrowd = SerialExecutorThreads::maxWaiting / 2;

}  // namespace

/// What an executor and its thread share.
class SerialQueue {
 public:
  void push(Job job) {
    const std::lock_guard lock(mutex_);
    if (!isClosed_) append(std::move(job));
  }

  /// False: a crowd waits already, and the job is dropped.
  bool pushUnlessCrowded(Job job) {
    std::unique_lock lock(mutex_);
    if (isClosed_) return true;
    if (jobs_.size() < SerialExecutorThreads::maxWaiting) {
      append(std::move(job));
      return true;
    }
    const bool isFirst = dropped_++ == 0;
    lock.unlock();
    if (isFirst) platformLogger().error("Too many events wait to be reported; what comes now is lost");
    return false;
  }

  /// No further job comes out. Gives the waiting ones, whose end may run anything and wait for the main thread: they
  /// are to be let go where nobody else has to wait for that.
  [[nodiscard]] std::deque<Job> close() {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    changed_.notify_one();
    return std::exchange(jobs_, {});
  }

  /// Runs the jobs until the queue is closed.
  void run() {
    thread_ = std::this_thread::get_id();
    while (true) {
      const auto [job, dropped] = next();
      if (dropped > 0) platformLogger().error(std::to_string(dropped) + " events were lost while too many waited");
      if (!job) break;
      job();
    }
    hasEnded_ = true;
  }

  bool hasEnded() const { return hasEnded_; }
  bool isCurrent() const { return std::this_thread::get_id() == thread_; }

 private:
  struct Next {
    Job job;                  // empty when the queue was closed
    std::size_t dropped = 0;  // in a crowd that is over now
  };

  Next next() {
    Next next;
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isClosed_ || !jobs_.empty(); });
    if (isClosed_ || jobs_.size() <= maxAfterACrowd) next.dropped = std::exchange(dropped_, 0);
    if (isClosed_) return next;
    next.job = std::move(jobs_.front());
    jobs_.pop_front();
    return next;
  }

  void append(Job job) {
    jobs_.push_back(std::move(job));
    changed_.notify_one();
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Job> jobs_;     // guarded by mutex_
  std::size_t dropped_ = 0;  // guarded by mutex_; in the crowd that waits
  bool isClosed_ = false;    // guarded by mutex_
  std::atomic<std::thread::id> thread_;
  std::atomic<bool> hasEnded_ = false;
};

class SerialExecutorThreads::Executor final : public SerialExecutor {
 public:
  Executor(SerialExecutorThreads& threads, std::shared_ptr<SerialQueue> queue)
      : threads_(threads), queue_(std::move(queue)) {}
  ~Executor() override { const auto dropped = queue_->close(); }
  Executor(const Executor&) = delete;
  Executor& operator=(const Executor&) = delete;

  void post(Job job) override { queue_->push(threads_.loop_.clickTimes().continued(std::move(job))); }
  void postUnlessCrowded(Job job) override {
    auto continued = threads_.loop_.clickTimes().continued(std::move(job));
    if (!queue_->pushUnlessCrowded(std::move(continued))) ++threads_.dropped_;
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
  if (isClosed_) static_cast<void>(queue->close());
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
  std::vector<std::deque<Job>> dropped;  // let go after the lock, for which the main thread may wait
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
  for (const auto& worker : workers_) dropped.push_back(worker.queue->close());
}

SerialExecutorThreads::~SerialExecutorThreads() {
  close();
  const auto hasEnded = [](const Worker& worker) { return worker.queue->hasEnded(); };
  loop_.serveWaitersUntil([&] { return std::ranges::all_of(workers_, hasEnded); });
  joinEndedWorkers();
}

}  // namespace norra::linux_desktop
