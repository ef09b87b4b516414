#include <mutex>

#include "tests/conformance/ConformanceTest.h"

namespace norra::conformance {
namespace {

TEST_P(ExecutorConformance, RunsItsJobsOneAtATimeInTheOrderOfPosting) {
  const auto executor = platform().serialExecutors.createSerialExecutor();
  std::vector<int> seen;
  std::vector<int> all;
  std::atomic<int> running = 0;
  for (int number = 0; number < 100; ++number) {
    all.push_back(number);
    executor->post([&, number] {
      EXPECT_EQ(++running, 1);
      seen.push_back(number);
      --running;
    });
  }
  ASSERT_TRUE(runOn(*executor, [] {}));
  EXPECT_EQ(seen, all);
}

TEST_P(ExecutorConformance, RunsNothingInsidePost) {
  const auto executor = platform().serialExecutors.createSerialExecutor();
  std::vector<std::string> said;
  ASSERT_TRUE(runOn(*executor, [&] {
    executor->post([&] { said.emplace_back("inner"); });
    said.emplace_back("outer");
  }));
  ASSERT_TRUE(runOn(*executor, [] {}));
  EXPECT_THAT(said, testing::ElementsAre("outer", "inner"));
}

TEST_P(ExecutorConformance, IsCurrentInItsOwnJobsOnly) {
  const auto executor = platform().serialExecutors.createSerialExecutor();
  const auto other = platform().serialExecutors.createSerialExecutor();
  EXPECT_FALSE(executor->isCurrent());
  ASSERT_TRUE(runOn(*executor, [&] {
    EXPECT_TRUE(executor->isCurrent());
    EXPECT_FALSE(other->isCurrent());
    EXPECT_FALSE(platform().mainRunLoop.isCurrent());
  }));
  ASSERT_TRUE(runOn(*other, [&] { EXPECT_FALSE(executor->isCurrent()); }));
}

TEST_P(ExecutorConformance, IsNotCurrentWhileTheMainThreadWorksForIt) {
  const auto executor = platform().serialExecutors.createSerialExecutor();
  ASSERT_TRUE(runOn(*executor, [&] {
    platform().mainRunLoop.runAndWait([&] { EXPECT_FALSE(executor->isCurrent()); });
    EXPECT_TRUE(executor->isCurrent());
  }));
}

TEST_P(ExecutorConformance, ItsEndLetsTheRunningJobEndAndDropsTheOthers) {
  auto executor = platform().serialExecutors.createSerialExecutor();
  const auto held = std::make_shared<int>();
  std::atomic<bool> hasEnded = false;
  std::atomic<bool> hasRunDropped = false;
  std::mutex posting;  // both jobs wait before the first begins
  posting.lock();
  executor->post([&] {
    const std::lock_guard wait(posting);
    executor.reset();
    hasEnded = true;
  });
  executor->post([&, held] { hasRunDropped = true; });
  posting.unlock();
  ASSERT_TRUE(serveUntil([&] { return hasEnded && held.use_count() == 1; }));
  EXPECT_FALSE(hasRunDropped);
}

INSTANTIATE_TEST_SUITE_P(Desktop, ExecutorConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
