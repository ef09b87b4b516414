#include <gtest/gtest.h>

#include "Platform/Linux/runtime/ClickTimes.h"
#include "Platform/Linux/runtime/SerialExecutorThread.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

// Arrivals in the past make reports that took at least so long, and hardly longer.
constexpr auto unit = 30s;
constexpr std::uint64_t microseconds = 30'000'000;

TEST(ClickTimes, GivesTheMedianAndThe99thPercentileOfTheLatestReports) {
  ClickTimes times;
  const auto report = [&](int units) {
    const ClickTimes::Handling handling(times, steady_clock::now() - units * unit);
    times.noteReport();
  };
  EXPECT_EQ(times.summary().count, 0U);
  EXPECT_EQ(times.summary().median, 0U);
  for (std::size_t i = 0; i < ClickTimes::maxKept; ++i) report(100);
  for (int units = 1; units <= 100; ++units) report(units);
  for (std::size_t i = 0; i < ClickTimes::maxKept - 100; ++i) report(30);
  const auto [count, median, percentile99] = times.summary();
  EXPECT_EQ(count, ClickTimes::maxKept);
  EXPECT_EQ(median / microseconds, 30U) << "the first thousand are forgotten";
  EXPECT_EQ(percentile99 / microseconds, 90U) << "the eleventh from above of 1024";
}

/// The jobs of a click are posted in its handling, and run somewhere else later.
class ClickTimesOfJobs : public testing::Test {
 protected:
  EventLoop loop;
  std::optional<SerialExecutorThreads> executors{std::in_place, loop};
  std::shared_ptr<SerialExecutor> executor = executors->createSerialExecutor();
};

TEST_F(ClickTimesOfJobs, FollowsAClickOverAnExecutorAndDelayedWork) {
  auto& times = loop.clickTimes();
  const auto report = [&] { times.noteReport(); };
  {
    const ClickTimes::Handling handling(times, steady_clock::now() - unit);
    executor->postUnlessCrowded(report);
    loop.postAfter(1ms, [&] {
      executor->post([&, end = times.continued(report)] {
        end();
        loop.post([this] { loop.end(0); });
      });
    });
  }
  executor->post(report);
  loop.run();
  executors.reset();
  EXPECT_EQ(times.summary().count, 2U) << "what was posted after the click does not belong to it";
  EXPECT_GE(times.summary().median, microseconds);
}

}  // namespace
}  // namespace norra::linux_desktop
