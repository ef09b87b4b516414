// The main run loop on systemd's event loop: everything that the main thread waits for is a source of one sd_event.
//
// So nothing of it needs a lock, and no event waits behind another wait. Jobs of other threads come in through one
// counter; delayed work is a timer. An iteration of the loop handles one thing, which is what readers of elements call
// an epoch.
#pragma once

#include <systemd/sd-event.h>

#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_set>

#include "Platform/Linux/runtime/ClickTimes.h"
#include "Platform/Linux/runtime/EventSource.h"
#include "Platform/RunLoop.h"

namespace norra::linux_desktop {

/// Belongs to the thread that makes it, which is the main thread from then on.
class EventLoop final : public MainRunLoop {
 public:
  EventLoop();
  /// No thread may wait in runAndWait then; see serveWaitersUntil.
  ~EventLoop() override;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;

  /// Where the other facilities of this platform put their sources.
  sd_event* event() const { return event_.get(); }

  /// Of the clicks that are handled on this loop, with the delayed work that they cause.
  ClickTimes& clickTimes() { return clickTimes_; }

  void post(Job job) override;
  std::shared_ptr<DispatchWorkItem> postAfter(std::chrono::nanoseconds delay, Job job) override;
  void runAndWait(const Job& job) override;
  bool isCurrent() const override { return std::this_thread::get_id() == mainThread_; }

  /// Runs the job on every SIGTERM, SIGINT and SIGHUP that the process did not inherit as ignored. They are blocked for
  /// this thread and for those that it starts from now on. Main thread, once.
  void onTerminationSignals(Job job);

  /// Serves all sources until end(), whose status it gives. Main thread.
  std::optional<int> run();

  /// Makes run() return; no posted job is begun after. Main thread.
  void end(std::optional<int> status);

  /// After run(): runs what other threads wait for in runAndWait, and drops what was merely posted, until `done`, which
  /// is asked after every post. Main thread.
  void serveWaitersUntil(const std::function<bool()>& done);

 private:
  class TimedJob;
  struct PostedJob {
    Job job;
    bool isAwaited = false;
  };

  void enqueue(PostedJob posted);
  PostedJob takePosted();
  void addSignal(int signal);
  static int onPosted(sd_event_source* source, int descriptor, std::uint32_t events, void* loop) noexcept;
  static int onSignal(sd_event_source* source, const struct signalfd_siginfo* info, void* loop) noexcept;

  const std::thread::id mainThread_ = std::this_thread::get_id();
  const int postedCount_;  // an eventfd that counts what is in posted_
  const EventPtr event_;   // main thread only
  ClickTimes clickTimes_;

  std::mutex mutex_;
  std::deque<PostedJob> posted_;  // guarded by mutex_

  // Main thread only.
  EventSourcePtr postedSource_;
  std::unordered_set<std::shared_ptr<TimedJob>> timedJobs_;
  Job terminationJob_;
  bool hasEnded_ = false;
  std::optional<int> status_;
};

class SystemClock final : public Clock {
 public:
  std::chrono::system_clock::time_point now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace norra::linux_desktop
