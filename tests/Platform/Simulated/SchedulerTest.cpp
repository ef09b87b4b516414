#include <gmock/gmock.h>

#include "Platform/Simulated/Scheduler.h"

namespace norra::simulated {
namespace {

using std::chrono_literals::operator""ms;
using testing::ElementsAre;
using testing::IsEmpty;

class SchedulerTest : public testing::Test {
 protected:
  Job saying(std::string text) {
    return [this, text = std::move(text)] { said_.push_back(text); };
  }
  Job sayingWhen(const std::string& text) {
    return [this, text] { said_.push_back(text + "@" + std::to_string(scheduler_.elapsed() / 1ms)); };
  }

  std::vector<std::string> said_;
  Scheduler scheduler_;
};

TEST_F(SchedulerTest, RunsTheJobsOfAllQueuesInTheOrderOfPosting) {
  const auto one = scheduler_.createSerialExecutor();
  const auto other = scheduler_.createSerialExecutor();
  one->post([&] {
    said_.push_back("1");
    other->post(saying("4"));
    scheduler_.post(saying("5"));
  });
  scheduler_.post(saying("2"));
  other->post(saying("3"));
  EXPECT_THAT(said_, IsEmpty());
  scheduler_.runReadyJobs();
  EXPECT_THAT(said_, ElementsAre("1", "2", "3", "4", "5"));
}

TEST_F(SchedulerTest, RunsDelayedWorkAtItsOwnTimeAndTiesInTheOrderOfScheduling) {
  scheduler_.postAfter(30ms, sayingWhen("late"));
  scheduler_.postAfter(10ms, [&] {
    sayingWhen("first")();
    scheduler_.postAfter(10ms, sayingWhen("rearmed"));
    scheduler_.post(sayingWhen("posted"));
  });
  scheduler_.postAfter(10ms, sayingWhen("tie"));
  scheduler_.advance(29ms);
  EXPECT_THAT(said_, ElementsAre("first@10", "posted@10", "tie@10", "rearmed@20"));
  scheduler_.advance(1ms);
  EXPECT_EQ(said_.back(), "late@30");
}

TEST_F(SchedulerTest, NothingRunsAfterTheStop) {
  scheduler_.postAfter(10ms, [&] {
    scheduler_.stop();
    scheduler_.post(saying("posted"));
    said_.push_back("stopping");
  });
  scheduler_.postAfter(20ms, saying("delayed"));
  scheduler_.advance(30ms);
  EXPECT_THAT(said_, ElementsAre("stopping"));
  EXPECT_EQ(scheduler_.elapsed(), 10ms);
}

TEST_F(SchedulerTest, DroppedJobsAreDestroyedWithoutRunning) {
  const auto held = std::make_shared<int>();
  scheduler_.post([held] { FAIL(); });
  scheduler_.postAfter(1ms, [held] { FAIL(); });
  scheduler_.dropWaitingJobs();
  EXPECT_EQ(held.use_count(), 1);
  scheduler_.advance(1ms);
}

}  // namespace
}  // namespace norra::simulated
