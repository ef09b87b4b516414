#include <gtest/gtest.h>

#include <sstream>

#include "ScenarioPlayer/Transcript.h"

namespace norra::scenario {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""ns;
using std::chrono_literals::operator""s;

TEST(SecondsText, HasNoDigitsThatSayNothing) {
  EXPECT_EQ(secondsText(0ns), "0");
  EXPECT_EQ(secondsText(100s), "100");
  EXPECT_EQ(secondsText(1500ms), "1.5");
  EXPECT_EQ(secondsText(10ms), "0.01");
  EXPECT_EQ(secondsText(86400s + 1ns), "86400.000000001");
}

class TranscriptTest : public testing::Test {
 protected:
  simulated::Scheduler scheduler_;
  std::ostringstream out_;
  Transcript transcript_{out_, scheduler_};
};

TEST_F(TranscriptTest, EscapesOnlyWhatMustBe) {
  scheduler_.advance(1500ms);
  transcript_.printReply("a/b", "start", "\"\\\n\x01 \xC3\xA9 \xF0\x9F\x8C\x8A");
  EXPECT_EQ(out_.str(),
            "{\"t\":1.5,\"client\":\"a/b\",\"operation\":\"start\",\"reply\":\"\\\"\\\\\\n\\u0001 \xC3\xA9 "
            "\xF0\x9F\x8C\x8A\"}\n");
}

TEST_F(TranscriptTest, PrintsMessagesThatTheLoggerHoldsBack) {
  transcript_.write({"", "C", "", LogLevel::debug, false, "m"});
  EXPECT_EQ(out_.str(), "{\"t\":0,\"log\":\"debug\",\"category\":\"C\",\"message\":\"m\"}\n");
}

TEST_F(TranscriptTest, NothingFollowsTheExit) {
  transcript_.processDidExit(0);
  transcript_.transactionDidEnd();
  EXPECT_EQ(out_.str(), "{\"t\":0,\"exit\":0}\n");
}

TEST_F(TranscriptTest, TheLastMessageIsTheLastLine) {
  transcript_.expectLastMessage();
  transcript_.transactionDidEnd();
  transcript_.write({"", "C", "", LogLevel::info, true, "Service stopped"});
  transcript_.transactionDidEnd();
  EXPECT_EQ(out_.str(), "{\"t\":0,\"log\":\"info\",\"category\":\"C\",\"message\":\"Service stopped\"}\n");
}

}  // namespace
}  // namespace norra::scenario
