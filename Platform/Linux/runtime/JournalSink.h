// Where the messages of the service go.
#pragma once

#include <memory>

#include "NorraLogging/NorraOSLogger.h"

namespace norra::linux_desktop {

/// Which messages a sink writes: those that their logger let through, or debug messages and all else.
enum class Messages { enabled, all };

/// Messages become entries of the journal, with NORRA_SUBSYSTEM, NORRA_CATEGORY and NORRA_PROCESS_TYPE as fields.
class JournalSink final : public LogSink {
 public:
  explicit JournalSink(Messages written = Messages::enabled) : written_(written) {}
  void write(const LogMessage& message) override;

 private:
  Messages written_;
};

/// Messages become lines: time of day, level, category, text.
class StandardErrorSink final : public LogSink {
 public:
  explicit StandardErrorSink(Messages written = Messages::enabled) : written_(written) {}
  void write(const LogMessage& message) override;

 private:
  Messages written_;
};

/// The journal where standard error leads there or systemd started this very process as a service; otherwise standard
/// error.
std::unique_ptr<LogSink> newLogSink(Messages written = Messages::enabled);

}  // namespace norra::linux_desktop
