// The place of the call would be this file for every message.
#define SD_JOURNAL_SUPPRESS_LOCATION

#include "Platform/Linux/runtime/JournalSink.h"

#include <sys/stat.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace norra::linux_desktop {
namespace {

int priority(LogLevel level) {
  static constexpr std::array priorities{LOG_DEBUG, LOG_INFO, LOG_WARNING, LOG_ERR};
  return priorities[static_cast<std::size_t>(level)];
}

std::string environment(const char* variable) {
  const char* const value = std::getenv(variable);
  return value == nullptr ? "" : value;
}

/// systemd names the stream that it connected to the journal by its device and inode.
bool isStandardErrorTheJournal() {
  struct stat status {};
  if (fstat(STDERR_FILENO, &status) != 0) return false;
  return environment("JOURNAL_STREAM") == std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

bool isServiceOfSystemd() {
  return environment("SYSTEMD_EXEC_PID") == std::to_string(getpid()) &&
         access("/run/systemd/journal/socket", W_OK) == 0;
}

std::string timeOfDay() {
  const auto now = std::chrono::system_clock::now();
  const auto seconds = std::chrono::system_clock::to_time_t(now);
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  std::tm local{};
  localtime_r(&seconds, &local);
  std::array<char, 32> text{};
  const auto length = std::strftime(text.data(), text.size(), "%H:%M:%S", &local);
  std::snprintf(text.data() + length, text.size() - length, ".%03d", static_cast<int>(milliseconds));
  return text.data();
}

int width(std::string_view text) { return static_cast<int>(text.size()); }

}  // namespace

void JournalSink::write(const LogMessage& message) {
  if (!message.isEnabled) return;
  sd_journal_send("MESSAGE=%.*s", width(message.text), message.text.data(),                           //
                  "PRIORITY=%i", priority(message.level),                                             //
                  "NORRA_SUBSYSTEM=%.*s", width(message.subsystem), message.subsystem.data(),         //
                  "NORRA_CATEGORY=%.*s", width(message.category), message.category.data(),            //
                  "NORRA_PROCESS_TYPE=%.*s", width(message.processType), message.processType.data(),  //
                  nullptr);
}

void StandardErrorSink::write(const LogMessage& message) {
  if (!message.isEnabled) return;
  std::string line = timeOfDay();
  line.append(" ").append(name(message.level)).append(" ").append(message.category).append(": ");
  line.append(message.text).append("\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

std::unique_ptr<LogSink> newLogSink() {
  if (isStandardErrorTheJournal() || isServiceOfSystemd()) return std::make_unique<JournalSink>();
  return std::make_unique<StandardErrorSink>();
}

}  // namespace norra::linux_desktop
