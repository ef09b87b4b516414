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
#include <string>

#include "NorraBase/TimeText.h"

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

int width(std::string_view text) { return static_cast<int>(text.size()); }

}  // namespace

void JournalSink::write(const LogMessage& message) {
  if (!message.isEnabled && written_ == Messages::enabled) return;
  sd_journal_send("MESSAGE=%.*s", width(message.text), message.text.data(),                           //
                  "PRIORITY=%i", priority(message.level),                                             //
                  "NORRA_SUBSYSTEM=%.*s", width(message.subsystem), message.subsystem.data(),         //
                  "NORRA_CATEGORY=%.*s", width(message.category), message.category.data(),            //
                  "NORRA_PROCESS_TYPE=%.*s", width(message.processType), message.processType.data(),  //
                  nullptr);
}

void StandardErrorSink::write(const LogMessage& message) {
  if (!message.isEnabled && written_ == Messages::enabled) return;
  std::string line = localTimeOfDay(std::chrono::system_clock::now());
  line.append(" ").append(name(message.level)).append(" ").append(message.category).append(": ");
  line.append(message.text).append("\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

std::unique_ptr<LogSink> newLogSink(Messages written) {
  if (isStandardErrorTheJournal() || isServiceOfSystemd()) return std::make_unique<JournalSink>(written);
  return std::make_unique<StandardErrorSink>(written);
}

}  // namespace norra::linux_desktop
