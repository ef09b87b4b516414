#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Linux/runtime/EventLoop.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""ms;
using testing::ElementsAre;

class EventLoopTest : public testing::Test {
 protected:
  Job append(std::string text) {
    return [this, text] { seen.push_back(text); };
  }
  void runUntilIdle() {
    loop.post([this] { loop.end(std::nullopt); });
    loop.run();
  }

  EventLoop loop;
  std::vector<std::string> seen;
};

TEST_F(EventLoopTest, BeginsNoJobAfterItsEnd) {
  loop.post([this] { loop.end(0); });
  loop.post(append("late"));
  loop.run();
  EXPECT_THAT(seen, ElementsAre());
}

TEST_F(EventLoopTest, TheFirstEndGivesTheStatus) {
  loop.post([this] {
    loop.end(3);
    loop.end(4);
  });
  EXPECT_EQ(loop.run(), 3);
}

TEST_F(EventLoopTest, ADelayedJobMayCancelItselfAndIsLetGoAfterItRan) {
  std::shared_ptr<DispatchWorkItem> item;
  auto held = std::make_shared<int>();
  item = loop.postAfter(0ms, [&, held] {
    item->cancel();
    seen.emplace_back("ran");
  });
  loop.postAfter(1ms, [this] { loop.end(0); });
  loop.run();
  EXPECT_THAT(seen, ElementsAre("ran"));
  EXPECT_EQ(held.use_count(), 1);
}

TEST(EventLoop, CancellingAfterTheLoopHasGoneDoesNothing) {
  auto held = std::make_shared<int>();
  std::shared_ptr<DispatchWorkItem> item;
  {
    EventLoop loop;
    item = loop.postAfter(std::chrono::hours(1), [held] {});
    EXPECT_EQ(held.use_count(), 2);
  }
  EXPECT_EQ(held.use_count(), 1);
  item->cancel();
}

TEST_F(EventLoopTest, RunAndWaitRunsOnTheMainThreadAndReturnsAfterwards) {
  std::thread other([this] {
    EXPECT_FALSE(loop.isCurrent());
    loop.post(append("posted before"));
    bool wasMainThread = false;
    loop.runAndWait([&] {
      seen.emplace_back("waited for");
      wasMainThread = loop.isCurrent();
    });
    EXPECT_TRUE(wasMainThread);
    loop.post([this] { loop.end(0); });
  });
  loop.run();
  other.join();
  EXPECT_THAT(seen, ElementsAre("posted before", "waited for"));
}

TEST_F(EventLoopTest, KeepsTheOrderOfEachOfManyPostingThreads) {
  constexpr int threads = 4;
  constexpr int jobs = 500;
  std::vector<std::vector<int>> order(threads);
  std::atomic<int> running = threads;
  std::vector<std::thread> posting;
  for (int thread = 0; thread < threads; ++thread) {
    posting.emplace_back([&, thread] {
      for (int job = 0; job < jobs; ++job) loop.post([&, thread, job] { order[thread].push_back(job); });
      if (--running == 0) loop.post([this] { loop.end(0); });
    });
  }
  loop.run();
  for (auto& thread : posting) thread.join();
  for (const auto& jobsOfOneThread : order) {
    EXPECT_EQ(jobsOfOneThread.size(), jobs);
    EXPECT_TRUE(std::ranges::is_sorted(jobsOfOneThread));
  }
}

TEST_F(EventLoopTest, ServesWaitersAfterItsEndAndDropsOtherJobs) {
  runUntilIdle();
  std::atomic<bool> hasReturned = false;
  std::thread other([&] {
    loop.post(append("dropped"));
    loop.runAndWait(append("waited for"));
    hasReturned = true;
    loop.post([] {});
  });
  loop.serveWaitersUntil([&] { return hasReturned.load(); });
  other.join();
  EXPECT_THAT(seen, ElementsAre("waited for"));
}

TEST_F(EventLoopTest, RunsAJobOnEachTerminationSignal) {
  sigset_t before;
  pthread_sigmask(SIG_SETMASK, nullptr, &before);
  loop.onTerminationSignals([this] {
    seen.emplace_back("signal");
    seen.size() == 1 ? static_cast<void>(raise(SIGINT)) : loop.end(std::nullopt);
  });
  loop.post([] { raise(SIGTERM); });
  EXPECT_EQ(loop.run(), std::nullopt);
  EXPECT_THAT(seen, ElementsAre("signal", "signal"));
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(EventLoopTest, LeavesAnIgnoredSignalIgnored) {
  sigset_t before;
  pthread_sigmask(SIG_SETMASK, nullptr, &before);
  const auto handler = std::signal(SIGINT, SIG_IGN);
  loop.onTerminationSignals(append("signal"));
  raise(SIGINT);
  runUntilIdle();
  EXPECT_THAT(seen, ElementsAre());
  std::signal(SIGINT, handler);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace
}  // namespace norra::linux_desktop
