#include <gtest/gtest.h>

#include "Platform/Linux/service/AutomaticTermination.h"
#include "Platform/Simulated/Scheduler.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""s;

class AutomaticTerminationTest : public testing::Test {
 protected:
  simulated::Scheduler clock;
  int ends = 0;
  AutomaticTermination termination{clock, 30s, [this] { ++ends; }};
};

TEST_F(AutomaticTerminationTest, NeverComesUnlessItIsEnabled) {
  clock.advance(100s);
  EXPECT_EQ(ends, 0);
}

TEST_F(AutomaticTerminationTest, ComesAfterTheWholeIdleTime) {
  termination.setEnabled(true);
  clock.advance(29s);
  EXPECT_EQ(ends, 0);
  clock.advance(1s);
  EXPECT_EQ(ends, 1);
}

TEST_F(AutomaticTerminationTest, IsPutOffByAClientAndByATransaction) {
  termination.setEnabled(true);
  clock.advance(20s);
  termination.setConnectedClients(1);
  clock.advance(20s);
  termination.setOpenTransactions(1);
  termination.setConnectedClients(0);
  clock.advance(40s);
  termination.setOpenTransactions(0);
  clock.advance(29s);
  EXPECT_EQ(ends, 0);
  clock.advance(1s);
  EXPECT_EQ(ends, 1);
}

TEST_F(AutomaticTerminationTest, ComesAgainWhereTheEndWasNotTheEnd) {
  termination.setEnabled(true);
  clock.advance(60s);
  EXPECT_EQ(ends, 2);
}

}  // namespace
}  // namespace norra::linux_desktop
