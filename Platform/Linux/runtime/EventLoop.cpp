#include "Platform/Linux/runtime/EventLoop.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <future>
#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t timerAccuracyMicroseconds = 1;

EventPtr newEvent() {
  sd_event* event = nullptr;
  require(sd_event_new(&event), "sd_event_new");
  return EventPtr(event);
}

/// As a shell makes it for what it runs in the background. A blocked signal would be heard all the same.
bool isIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

/// Kept by the loop while it is due, and by whoever may cancel it.
class EventLoop::TimedJob final : public DispatchWorkItem, public std::enable_shared_from_this<TimedJob> {
 public:
  TimedJob(EventLoop& loop, Job job) : loop_(&loop), job_(std::move(job)) {}

  void schedule(std::chrono::nanoseconds delay) {
    const auto microseconds = std::chrono::ceil<std::chrono::microseconds>(std::max(delay, {})).count();
    sd_event_source* source = nullptr;
    require(
        sd_event_add_time_relative(loop_->event(), &source, CLOCK_MONOTONIC, static_cast<std::uint64_t>(microseconds),
                                   timerAccuracyMicroseconds, onTime, this),
        "sd_event_add_time_relative");
    source_.reset(source);
  }

  void cancel() override {
    const auto keptAlive = shared_from_this();
    const auto job = leaveLoop();
  }

  /// The job, which will not run by itself any more; empty when it ran or was cancelled.
  Job leaveLoop() {
    source_.reset();
    if (auto* loop = std::exchange(loop_, nullptr)) loop->timedJobs_.erase(shared_from_this());
    return std::exchange(job_, nullptr);
  }

 private:
  static int onTime(sd_event_source*, std::uint64_t, void* self) noexcept {
    const auto item = static_cast<TimedJob*>(self)->shared_from_this();
    if (const auto job = item->leaveLoop()) job();
    return 0;
  }

  EventLoop* loop_;
  Job job_;
  EventSourcePtr source_;
};

EventLoop::EventLoop()
    : postedCount_(require(eventfd(0, EFD_SEMAPHORE | EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")), event_(newEvent()) {
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event(), &source, postedCount_, POLLIN, onPosted, this), "sd_event_add_io");
  postedSource_.reset(source);
}

EventLoop::~EventLoop() {
  while (!timedJobs_.empty()) (*timedJobs_.begin())->cancel();
  postedSource_.reset();
  close(postedCount_);
}

void EventLoop::post(Job job) { enqueue({std::move(job), false}); }

void EventLoop::enqueue(PostedJob posted) {
  {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(posted));
  }
  eventfd_write(postedCount_, 1);
}

std::shared_ptr<DispatchWorkItem> EventLoop::postAfter(std::chrono::nanoseconds delay, Job job) {
  auto item = std::make_shared<TimedJob>(*this, clickTimes_.continued(std::move(job)));
  item->schedule(delay);
  timedJobs_.insert(item);
  return item;
}

void EventLoop::runAndWait(const Job& job) {
  if (isCurrent()) return job();
  auto hasRun = std::make_shared<std::promise<void>>();
  enqueue({[&job, hasRun] {
             job();
             hasRun->set_value();
           },
           true});
  hasRun->get_future().wait();
}

EventLoop::PostedJob EventLoop::takePosted() {
  eventfd_t one = 0;
  if (eventfd_read(postedCount_, &one) < 0) return {};
  const std::lock_guard lock(mutex_);
  auto first = std::move(posted_.front());
  posted_.pop_front();
  return first;
}

int EventLoop::onPosted(sd_event_source*, int, std::uint32_t, void* self) noexcept {
  auto& loop = *static_cast<EventLoop*>(self);
  if (loop.hasEnded_) return 0;
  if (const auto posted = loop.takePosted(); posted.job) posted.job();
  return 0;
}

void EventLoop::onTerminationSignals(Job job) {
  terminationJob_ = std::move(job);
  addSignal(SIGTERM);
  addSignal(SIGINT);
  addSignal(SIGHUP);
}

void EventLoop::addSignal(int signal) {
  if (isIgnored(signal)) return;
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, signal);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  require(sd_event_add_signal(event(), nullptr, signal, onSignal, this), "sd_event_add_signal");
}

int EventLoop::onSignal(sd_event_source*, const signalfd_siginfo*, void* self) noexcept {
  static_cast<EventLoop*>(self)->terminationJob_();
  return 0;
}

std::optional<int> EventLoop::run() {
  require(sd_event_loop(event()), "sd_event_loop");
  return status_;
}

void EventLoop::end(std::optional<int> status) {
  if (std::exchange(hasEnded_, true)) return;
  status_ = status;
  sd_event_exit(event(), 0);
}

void EventLoop::serveWaitersUntil(const std::function<bool()>& done) {
  while (!done()) {
    pollfd posted{postedCount_, POLLIN, 0};
    if (poll(&posted, 1, -1) <= 0) continue;
    if (const auto next = takePosted(); next.isAwaited) next.job();
  }
}

}  // namespace norra::linux_desktop
