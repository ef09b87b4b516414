// Where the messages of the service go.
#pragma once

#include <memory>

#include "NorraLogging/NorraOSLogger.h"

namespace norra::linux_desktop {

/// Messages become entries of the journal, with NORRA_SUBSYSTEM, NORRA_CATEGORY and NORRA_PROCESS_TYPE as fields.
class JournalSink final : public LogSink {
 public:
  void write(const LogMessage& message) override;
};

/// Messages become lines: time of day, level, category, text.
class StandardErrorSink final : public LogSink {
 public:
  void write(const LogMessage& message) override;
};

/// The journal where standard error leads there or systemd started this very process as a service; otherwise standard
/// error. Neither writes a message that its logger did not let through.
std::unique_ptr<LogSink> newLogSink();

}  // namespace norra::linux_desktop
