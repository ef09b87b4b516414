#include "tests/conformance/ConformanceTest.h"

namespace norra::conformance {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGEventMask clicks = maskOf(CGEventType::leftMouseUp);
constexpr CGEventMask keys = maskOf(CGEventType::keyDown);

/// A tap and what it heard.
class Listening {
 public:
  Listening(const Platform& platform, CGEventMask events)
      : tap_(platform.eventTaps.createEventTap(events, [this, &loop = platform.mainRunLoop](const CGEvent& event) {
          EXPECT_TRUE(loop.isCurrent());
          heard_.push_back(event);
        })) {}

  EventTap& tap() { return *tap_; }
  Listening& onTheRunLoop() {
    tap_->addSourceToMainRunLoop();
    return *this;
  }
  Listening& enabled() {
    tap_->enable();
    return *this;
  }
  void end() { tap_.reset(); }
  const std::vector<CGEvent>& heard() const { return heard_; }

 private:
  std::vector<CGEvent> heard_;
  std::unique_ptr<EventTap> tap_;
};

TEST_P(InputConformance, ATapHearsOnlyWhileItIsEnabledAndOnTheRunLoop) {
  Listening neither(platform(), clicks);
  Listening enabled(platform(), clicks);
  Listening onTheRunLoop(platform(), clicks);
  Listening both(platform(), clicks);
  enabled.enabled();
  onTheRunLoop.onTheRunLoop();
  both.enabled().onTheRunLoop();
  for (const std::size_t count : {1U, 2U}) {
    desktop->click({10, 20});
    ASSERT_TRUE(serveUntil([&] { return both.heard().size() == count; }));
  }
  for (const auto* deaf : {&neither, &enabled, &onTheRunLoop}) EXPECT_THAT(deaf->heard(), IsEmpty());
}

TEST_P(InputConformance, ATapHearsOnlyWhatItAskedFor) {
  Listening forClicks(platform(), clicks);
  Listening forKeys(platform(), keys);
  for (auto* tap : {&forClicks, &forKeys}) tap->enabled().onTheRunLoop();
  desktop->click({10, 20});
  ASSERT_TRUE(serveUntil([&] { return !forClicks.heard().empty(); }));
  desktop->pressKey('a');
  ASSERT_TRUE(serveUntil([&] { return !forKeys.heard().empty(); }));
  desktop->click({10, 20});
  ASSERT_TRUE(serveUntil([&] { return forClicks.heard().size() == 2; }));
  for (const auto& event : forClicks.heard()) EXPECT_EQ(event.type, CGEventType::leftMouseUp);
  ASSERT_EQ(forKeys.heard().size(), 1U);
  EXPECT_EQ(forKeys.heard().front().type, CGEventType::keyDown);
}

TEST_P(InputConformance, AnEventSaysWhereThePointerIsOrWhatTheKeyTypes) {
  Listening listening(platform(), clicks | keys);
  listening.enabled().onTheRunLoop();
  desktop->click({30, 40});
  ASSERT_TRUE(serveUntil([&] { return listening.heard().size() == 1; }));
  EXPECT_EQ(listening.heard().front().location, (CGPoint{30, 40}));
  desktop->pressShortcut('q');
  const auto isLetter = [](const CGEvent& event) {
    return event.keyEvent && event.keyEvent->charactersIgnoringModifiers == "q";
  };
  ASSERT_TRUE(serveUntil([&] { return isLetter(listening.heard().back()); }))
      << "after the press of Control, if at all";
  const auto key = listening.heard().back().keyEvent;
  EXPECT_FALSE(key->specialKey);
  EXPECT_FALSE(key->isARepeat);
  EXPECT_EQ(key->modifierFlags, modifierFlag::control);
}

TEST_P(InputConformance, PlainTypingIsToldWithItsCharacterOrWithNone) {
  Listening listening(platform(), keys);
  listening.enabled().onTheRunLoop();
  desktop->pressKey('q');
  ASSERT_TRUE(serveUntil([&] { return listening.heard().size() == 1; }));
  const auto key = listening.heard().front().keyEvent;
  ASSERT_TRUE(key);
  EXPECT_EQ(key->charactersIgnoringModifiers.value_or("q"), "q");
  EXPECT_FALSE(key->specialKey);
  EXPECT_EQ(key->modifierFlags, 0U);
}

TEST_P(InputConformance, ATapHearsNothingOffTheRunLoopOrAfterItsEnd) {
  Listening leaving(platform(), clicks);
  Listening ending(platform(), clicks);
  Listening staying(platform(), clicks);
  for (auto* tap : {&leaving, &ending, &staying}) tap->enabled().onTheRunLoop();
  leaving.tap().removeSourceFromMainRunLoop();
  ending.end();
  for (const std::size_t count : {1U, 2U}) {
    desktop->click({10, 20});
    ASSERT_TRUE(serveUntil([&] { return staying.heard().size() == count; }));
  }
  EXPECT_THAT(leaving.heard(), IsEmpty());
  EXPECT_THAT(ending.heard(), IsEmpty());
  leaving.onTheRunLoop();
  desktop->click({10, 20});
  EXPECT_TRUE(serveUntil([&] { return leaving.heard().size() == 1; })) << "it comes back enabled";
}

TEST_P(InputConformance, TapsHearInTheOrderOfTheirCreation) {
  std::vector<int> order;
  const auto newTap = [&](int number) {
    auto tap = platform().eventTaps.createEventTap(clicks, [&, number](const auto&) { order.push_back(number); });
    tap->enable();
    return tap;
  };
  const auto first = newTap(1);
  const auto second = newTap(2);
  second->addSourceToMainRunLoop();
  first->addSourceToMainRunLoop();
  desktop->click({10, 20});
  ASSERT_TRUE(serveUntil([&] { return order.size() == 2; }));
  EXPECT_THAT(order, ElementsAre(1, 2));
}

INSTANTIATE_TEST_SUITE_P(Desktop, InputConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
