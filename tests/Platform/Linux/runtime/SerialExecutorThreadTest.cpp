#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <optional>
#include <thread>

#include "Platform/Linux/runtime/SerialExecutorThread.h"
#include "tests/RecordingSink.h"

namespace norra::linux_desktop {
namespace {

class SerialExecutorThreadTest : public testing::Test {
 protected:
  void TearDown() override { endAll(); }

  /// As the process ends: first the loop, then the executors.
  void endAll() {
    if (!executors) return;
    loop.post([this] { loop.end(std::nullopt); });
    loop.run();
    executors.reset();
  }

  RecordingSink log;
  EventLoop loop;
  std::optional<SerialExecutorThreads> executors{std::in_place, loop};
};

/// Runs a job and waits for its end.
void runOn(SerialExecutor& executor, const Job& job) {
  std::promise<void> done;
  executor.post([&] {
    job();
    done.set_value();
  });
  done.get_future().wait();
}

TEST_F(SerialExecutorThreadTest, DropsCountsAndLogsInACrowdWhatMayBeDropped) {
  const auto executor = executors->createSerialExecutor();
  std::size_t jobs = 0;
  std::promise<void> begin;
  std::promise<void> hasBegun;
  executor->post([&] {
    hasBegun.set_value();
    begin.get_future().wait();
  });
  hasBegun.get_future().wait();
  for (std::size_t i = 0; i < SerialExecutorThreads::maxWaiting + 3; ++i) executor->postUnlessCrowded([&] { ++jobs; });
  begin.set_value();
  runOn(*executor, [] {});
  EXPECT_EQ(jobs, SerialExecutorThreads::maxWaiting) << "what may not be dropped is not";
  EXPECT_EQ(executors->droppedJobs(), 3U);
  EXPECT_THAT(log.texts(LogLevel::error), testing::ElementsAre(testing::HasSubstr("what comes now is lost"),
                                                               "3 events were lost while too many waited"));
}

TEST_F(SerialExecutorThreadTest, DropsWaitingJobsWhenItIsLetGo) {
  auto executor = executors->createSerialExecutor();
  std::promise<void> begun;
  std::promise<void> mayEnd;
  std::atomic<bool> hasRunDropped = false;
  auto held = std::make_shared<int>();
  executor->post([&] {
    begun.set_value();
    mayEnd.get_future().wait();
  });
  executor->post([&, held] { hasRunDropped = true; });
  begun.get_future().wait();
  executor.reset();
  EXPECT_EQ(held.use_count(), 1) << "the dropped job is gone before its executor is";
  mayEnd.set_value();
  endAll();
  EXPECT_FALSE(hasRunDropped);
}

TEST_F(SerialExecutorThreadTest, BeginsNoJobAfterClose) {
  const auto executor = executors->createSerialExecutor();
  std::atomic<bool> hasRun = false;
  runOn(*executor, [&] {
    executors->close();
    executor->post([&] { hasRun = true; });
  });
  const auto late = executors->createSerialExecutor();
  late->post([&] { hasRun = true; });
  endAll();
  EXPECT_FALSE(hasRun);
}

// The main thread lets go of everything while a job still waits for the main thread.
TEST_F(SerialExecutorThreadTest, ItsEndServesAJobThatWaitsForTheMainThread) {
  auto executor = executors->createSerialExecutor();
  std::promise<void> begun;
  std::promise<void> mayWait;
  bool hasRunOnMainThread = false;
  executor->post([&] {
    begun.set_value();
    mayWait.get_future().wait();
    loop.runAndWait([&] { hasRunOnMainThread = loop.isCurrent(); });
  });
  begun.get_future().wait();
  executor.reset();
  mayWait.set_value();
  endAll();
  EXPECT_TRUE(hasRunOnMainThread);
}

/// As a collector does when its last owner lets go of it.
class EndsOnTheMainThread {
 public:
  EndsOnTheMainThread(EventLoop& loop, std::promise<void>& ending) : loop_(loop), ending_(ending) {}
  ~EndsOnTheMainThread() {
    ending_.set_value();
    loop_.runAndWait([] {});
  }
  EndsOnTheMainThread(const EndsOnTheMainThread&) = delete;
  EndsOnTheMainThread& operator=(const EndsOnTheMainThread&) = delete;

 private:
  EventLoop& loop_;
  std::promise<void>& ending_;
};

// One client's stop runs while another's waits, which is the last owner of its collector, and a third one starts.
TEST_F(SerialExecutorThreadTest, AStartNeedNotWaitForWhatAStopLetsGoOf) {
  const auto stopping = executors->createSerialExecutor();
  const auto busy = executors->createSerialExecutor();
  std::promise<void> begun;
  std::promise<void> mayEnd;
  std::promise<void> ending;
  busy->post([&] {
    begun.set_value();
    mayEnd.get_future().wait();
  });
  begun.get_future().wait();
  busy->post([owner = std::make_shared<EndsOnTheMainThread>(loop, ending)] {});
  stopping->post([&] { executors->close(); });
  ending.get_future().wait();
  const auto starting = executors->createSerialExecutor();
  EXPECT_NE(starting, nullptr);
  mayEnd.set_value();
  endAll();
}

}  // namespace
}  // namespace norra::linux_desktop
