// Loggers. Their names and messages belong to the service; where a message goes is a sink's business.
//
// Messages are whole texts in plain English, made where something happens. A logger decides by its level what is
// written; a sink may want more, as a scenario does, which shows a whole run.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <string_view>

namespace norra {

enum class LogLevel { debug, info, warning, error };

/// Lower-case English name.
std::string_view name(LogLevel level);

struct LogMessage {
  std::string_view subsystem;
  std::string_view category;
  std::string_view processType;
  LogLevel level = LogLevel::info;
  /// Whether the logger's level and state let the message through. A sink that shows a whole run may write it all the
  /// same.
  bool isEnabled = true;
  std::string_view text;
};

/// Where messages go. Any thread.
class LogSink {
 public:
  virtual ~LogSink() = default;
  virtual void write(const LogMessage& message) = 0;
};

/// One named source of messages. All operations from any thread.
class NorraOSLogger {
 public:
  NorraOSLogger(std::string subsystem, std::string category, std::string processType);

  void debug(std::string_view message) const { log(LogLevel::debug, message); }
  void info(std::string_view message) const { log(LogLevel::info, message); }
  void warning(std::string_view message) const { log(LogLevel::warning, message); }
  void error(std::string_view message) const { log(LogLevel::error, message); }

  /// 3: everything; 2: all but debug; 1: warnings and errors; 0: errors only. A new logger has 2.
  void changeLogLevel(int level) { level_ = level; }
  /// 1: on, as a new logger is; 0: off.
  void changeLogState(int state) { state_ = state; }

 private:
  void log(LogLevel level, std::string_view message) const;
  bool isEnabled(LogLevel level) const;

  std::string subsystem_;
  std::string category_;
  std::string processType_;
  std::atomic<int> level_ = 2;
  std::atomic<int> state_ = 1;
};

/// The subsystem of the service's loggers.
inline constexpr std::string_view mainBundleIdentifier = "com.norra.UserInteractionsCollectorService";

/// The category of the loggers that say, at debug level, why a click was not reported. What they say is for whoever
/// looks for that reason; it is no part of what the service promises to log.
inline constexpr std::string_view clickCategory = "Clicks";

namespace NorraOSLoggerFactory {

/// `processType` is one character.
std::unique_ptr<NorraOSLogger> newOSLogger(std::string subsystem, std::string category, std::string processType);

/// Sends the messages of every logger to the sink from now on; null: to nowhere, as at first. The sink is not owned.
/// Any thread; the caller sees to it that no message is under way when a sink ends.
void setSink(LogSink* sink);

}  // namespace NorraOSLoggerFactory

}  // namespace norra
