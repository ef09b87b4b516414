// What is logged while a test runs.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "NorraLogging/NorraOSLogger.h"

namespace norra {

/// Takes the messages of all loggers while it lives, whatever their level lets through.
class RecordingSink final : public LogSink {
 public:
  RecordingSink() { NorraOSLoggerFactory::setSink(this); }
  ~RecordingSink() override { NorraOSLoggerFactory::setSink(nullptr); }
  RecordingSink(const RecordingSink&) = delete;
  RecordingSink& operator=(const RecordingSink&) = delete;

  void write(const LogMessage& message) override {
    const std::lock_guard lock(mutex_);
    texts_[message.level].emplace_back(message.text);
  }

  /// In their order. Any thread.
  std::vector<std::string> texts(LogLevel level) const {
    const std::lock_guard lock(mutex_);
    const auto found = texts_.find(level);
    return found == texts_.end() ? std::vector<std::string>() : found->second;
  }

 private:
  mutable std::mutex mutex_;
  std::map<LogLevel, std::vector<std::string>> texts_;  // guarded by mutex_
};

}  // namespace norra
