#include <gmock/gmock.h>

#include "Platform/Linux/atspi/RestingApplications.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""ms;

class Resting : public testing::Test {
 protected:
  RestingApplications applications_;
  const RestingApplications::TimePoint start_{};
  static constexpr auto first_ = RestingApplications::firstRest;
};

TEST_F(Resting, EndsByItselfAndGrowsWithEveryMissedChance) {
  applications_.didNotAnswer(":1.5", start_);
  EXPECT_TRUE(applications_.isResting(":1.5", start_ + first_ - 1ms));
  EXPECT_FALSE(applications_.isResting(":1.5", start_ + first_));
  EXPECT_FALSE(applications_.isResting(":1.6", start_));
  applications_.didNotAnswer(":1.5", start_ + first_);
  EXPECT_TRUE(applications_.isResting(":1.5", start_ + first_ + 2 * first_ - 1ms));
  EXPECT_FALSE(applications_.isResting(":1.5", start_ + first_ + 2 * first_));
}

TEST_F(Resting, NeverGrowsBeyondItsLongest) {
  auto now = start_;
  for (int i = 0; i < 20; ++i, now += RestingApplications::longestRest) applications_.didNotAnswer(":1.5", now);
  EXPECT_FALSE(applications_.isResting(":1.5", now));
}

TEST_F(Resting, IsEndedByOneEventAndNotByTheNextOnes) {
  applications_.didNotAnswer(":1.5", start_);
  applications_.sentEvent(":1.5", start_);
  EXPECT_FALSE(applications_.isResting(":1.5", start_));
  applications_.showedLife(":1.5");  // an answer to another question
  applications_.didNotAnswer(":1.5", start_);
  const auto nextChance = start_ + RestingApplications::pauseBetweenChances;
  applications_.sentEvent(":1.5", nextChance - 1ms);
  EXPECT_TRUE(applications_.isResting(":1.5", nextChance - 1ms));
  applications_.sentEvent(":1.5", nextChance);
  EXPECT_FALSE(applications_.isResting(":1.5", nextChance));
}

TEST_F(Resting, EndsWithASignOfLife) {
  applications_.didNotAnswer(":1.5", start_);
  EXPECT_EQ(applications_.count(start_), 1U);
  applications_.showedLife(":1.5");
  EXPECT_FALSE(applications_.isResting(":1.5", start_));
  EXPECT_EQ(applications_.count(start_), 0U);
}

}  // namespace
}  // namespace norra::linux_desktop
