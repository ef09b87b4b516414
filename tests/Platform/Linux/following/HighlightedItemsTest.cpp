#include <gmock/gmock.h>

#include "Platform/Linux/following/HighlightedItems.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""ms;

class Highlights : public testing::Test {
 protected:
  AtspiReference click(HighlightedItems::TimePoint when, CGPoint where = {15, 15}) {
    return items_.clicked(where, when);
  }

  HighlightedItems items_;
  const HighlightedItems::TimePoint start_{};
  const AtspiReference open_{":1.5", "/open"};
  const AtspiReference save_{":1.5", "/save"};
  const AtspiReference comboBox_{":1.5", "/combo"};
  const AtspiRectangle place_{10, 10, 100, 20};
  const AtspiRectangle below_{10, 30, 100, 20};
};

TEST_F(Highlights, AreFoundWhereTheyAreAndAMomentAfter) {
  items_.highlighted(open_, place_, {}, start_);
  EXPECT_EQ(click(start_ + 5000ms, {15, 45}), AtspiReference{});
  items_.left(":1.5", start_ + 5000ms);
  EXPECT_EQ(click(start_ + 5000ms + HighlightedItems::grace - 1ms), open_);
  EXPECT_EQ(click(start_ + 5000ms + HighlightedItems::grace), AtspiReference{});
}

TEST_F(Highlights, EndWithTheClick) {
  items_.highlighted(open_, place_, {}, start_);
  EXPECT_EQ(click(start_ + 1000ms), open_);
  EXPECT_EQ(click(start_ + 1010ms), open_) << "the second look at the same click";
  EXPECT_EQ(click(start_ + 2000ms), AtspiReference{});
}

TEST_F(Highlights, GiveTheComboBoxWhileItsListHasOnlyJustOpened) {
  items_.highlighted(open_, place_, comboBox_, start_);
  EXPECT_EQ(click(start_ + 50ms), comboBox_);
  EXPECT_EQ(click(start_ + HighlightedItems::openingClick), open_);
}

TEST_F(Highlights, GiveTheItemThatTheUserMovedTo) {
  items_.highlighted(open_, place_, comboBox_, start_);
  items_.left(":1.5", start_ + 30ms);
  items_.highlighted(save_, below_, comboBox_, start_ + 30ms);
  EXPECT_EQ(click(start_ + 50ms, {15, 35}), save_);
}

}  // namespace
}  // namespace norra::linux_desktop
