#include "tests/conformance/ConformanceTest.h"

namespace norra::conformance {
namespace {

using std::chrono_literals::operator""ms;
using testing::ElementsAre;
using testing::IsEmpty;

Job saying(std::vector<std::string>& said, const std::string& text) {
  return [&said, text] { said.push_back(text); };
}

TEST_P(RunLoopConformance, RunsPostedJobsLaterAndInTheirOrder) {
  auto& loop = platform().mainRunLoop;
  std::vector<std::string> said;
  loop.post([&] {
    said.push_back("first");
    loop.post(saying(said, "fourth"));
    said.push_back("still first");
  });
  loop.post(saying(said, "second"));
  loop.post(saying(said, "third"));
  EXPECT_THAT(said, IsEmpty());
  ASSERT_TRUE(serveUntil([&] { return said.size() == 5; }));
  EXPECT_THAT(said, ElementsAre("first", "still first", "second", "third", "fourth"));
}

TEST_P(RunLoopConformance, RunsDelayedWorkInTheOrderOfItsTimeAndOnTheMainThread) {
  auto& loop = platform().mainRunLoop;
  std::vector<std::string> said;
  loop.postAfter(60ms, saying(said, "late"));
  loop.postAfter(20ms, [&] { said.emplace_back(loop.isCurrent() ? "early" : "on another thread"); });
  loop.postAfter(0ms, saying(said, "due"));
  EXPECT_THAT(said, IsEmpty());
  ASSERT_TRUE(serveUntil([&] { return said.size() == 3; }));
  EXPECT_THAT(said, ElementsAre("due", "early", "late"));
}

TEST_P(RunLoopConformance, DoesNotRunCancelledWork) {
  auto& loop = platform().mainRunLoop;
  std::vector<std::string> said;
  const auto cancelled = loop.postAfter(5ms, saying(said, "cancelled"));
  const auto kept = loop.postAfter(10ms, saying(said, "kept"));
  const auto cancelledByAnother = loop.postAfter(30ms, saying(said, "cancelled by another"));
  loop.postAfter(20ms, [&] { cancelledByAnother->cancel(); });
  loop.postAfter(40ms, saying(said, "last"));
  cancelled->cancel();
  ASSERT_TRUE(serveUntil([&] { return !said.empty() && said.back() == "last"; }));
  EXPECT_THAT(said, ElementsAre("kept", "last"));
  kept->cancel();  // it ran already
  cancelled->cancel();
}

TEST_P(RunLoopConformance, LetsGoOfWorkThatIsCancelledOrHasRun) {
  auto& loop = platform().mainRunLoop;
  const auto held = std::make_shared<int>();
  const auto ran = loop.postAfter(1ms, [held] {});
  const auto cancelled = loop.postAfter(1ms, [held] {});
  cancelled->cancel();
  EXPECT_TRUE(serveUntil([&] { return held.use_count() == 1; }));
}

TEST_P(RunLoopConformance, RunsWhatTheMainThreadWaitsForAtOnce) {
  auto& loop = platform().mainRunLoop;
  std::vector<std::string> said;
  loop.post(saying(said, "posted before"));
  loop.runAndWait(saying(said, "awaited"));
  EXPECT_THAT(said, ElementsAre("awaited"));
  EXPECT_TRUE(loop.isCurrent());
}

TEST_P(RunLoopConformance, RunsWhatAnExecutorWaitsForOnTheMainThreadOnce) {
  auto& loop = platform().mainRunLoop;
  const auto executor = platform().serialExecutors.createSerialExecutor();
  std::vector<std::string> said;
  const auto sayWhere = [&] {
    said.emplace_back(loop.isCurrent() ? "main" : executor->isCurrent() ? "executor" : "elsewhere");
  };
  ASSERT_TRUE(runOn(*executor, [&] {
    sayWhere();
    loop.runAndWait(sayWhere);
    sayWhere();
  }));
  EXPECT_THAT(said, ElementsAre("executor", "main", "executor"));
}

TEST_P(RunLoopConformance, KeepsTheOrderOfAnExecutorsJobs) {
  auto& loop = platform().mainRunLoop;
  const auto executor = platform().serialExecutors.createSerialExecutor();
  std::vector<int> seen;
  std::vector<int> all;
  for (int number = 0; number < 100; ++number) {
    all.push_back(number);
    executor->post([&, number] { loop.post([&seen, number] { seen.push_back(number); }); });
  }
  ASSERT_TRUE(serveUntil([&] { return seen.size() == all.size(); }));
  EXPECT_EQ(seen, all);
}

INSTANTIATE_TEST_SUITE_P(Desktop, RunLoopConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
