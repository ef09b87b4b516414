#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "Platform/Linux/runtime/JournalSink.h"

namespace norra::linux_desktop {
namespace {

using testing::EndsWith;

LogMessage message(bool isEnabled) {
  return {.subsystem = "com.norra",
          .category = "DataCollector",
          .processType = "C",
          .level = LogLevel::warning,
          .isEnabled = isEnabled,
          .text = "Ä %s"};
}

std::string streamOf(int descriptor) {
  struct stat status {};
  fstat(descriptor, &status);
  return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

bool isJournal(const std::unique_ptr<LogSink>& sink) { return dynamic_cast<JournalSink*>(sink.get()) != nullptr; }

TEST(StandardErrorSink, WritesALineForEachMessageThatItsLoggerLetThrough) {
  StandardErrorSink sink;
  testing::internal::CaptureStderr();
  sink.write(message(false));
  sink.write(message(true));
  const auto written = testing::internal::GetCapturedStderr();
  EXPECT_THAT(written, EndsWith(" warning DataCollector: Ä %s\n"));
  EXPECT_EQ(std::ranges::count(written, '\n'), 1);
}

TEST(StandardErrorSink, WritesEveryMessageWhereItIsToldTo) {
  StandardErrorSink sink(Messages::all);
  testing::internal::CaptureStderr();
  sink.write(message(false));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), EndsWith("\n"));
}

TEST(LogSink, IsTheJournalWhereStandardErrorLeadsThere) {
  unsetenv("SYSTEMD_EXEC_PID");
  unsetenv("JOURNAL_STREAM");
  EXPECT_FALSE(isJournal(newLogSink()));
  setenv("JOURNAL_STREAM", "1:1", 1);
  EXPECT_FALSE(isJournal(newLogSink())) << "a stream that was the journal for a parent";
  setenv("JOURNAL_STREAM", streamOf(STDERR_FILENO).c_str(), 1);
  EXPECT_TRUE(isJournal(newLogSink()));
  unsetenv("JOURNAL_STREAM");
}

}  // namespace
}  // namespace norra::linux_desktop
