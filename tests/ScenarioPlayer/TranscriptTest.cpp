#include <gtest/gtest.h>

#include <sstream>

#include "ScenarioPlayer/Transcript.h"

namespace norra::scenario {
namespace {

class TranscriptTest : public testing::Test {
 protected:
  simulated::Scheduler scheduler_;
  std::ostringstream out_;
  Transcript transcript_{out_, scheduler_};
};

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
