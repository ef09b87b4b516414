
#include "NorraLogging/NorraOSLogger.h"

#include <array>
#include <utility>

namespace norra {
namespace {

std::atomic<LogSink*> currentSink = nullptr;

}  // namespace

std::string_view name(LogLevel level) {
  static constexpr std::array<std::string_view, 4> names{"debug", "info", "warning", "error"};
  return names[static_cast<std::size_t>(level)];
}

NorraOSLogger::NorraOSLogger(std::string subsystem, std::string category, std::string processType)
    : subsystem_(std::move(subsystem)), category_(std::move(category)), processType_(std::move(processType)) {}

bool NorraOSLogger::isEnabled(LogLevel level) const {
  if (state_ != 1) return false;
  switch (level) {
    case LogLevel::debug: return level_ >= 3;
    case LogLevel::info: return level_ >= 2;
    case LogLevel::warning: return level_ >= 1;
    case LogLevel::error: return true;
  }
  return true;
}

void NorraOSLogger::log(LogLevel level, std::string_view message) const {
  if (auto* sink = currentSink.load()) {
    sink->write({subsystem_, category_, processType_, level, isEnabled(level), message});
  }
}

namespace NorraOSLoggerFactory {

std::unique_ptr<NorraOSLogger> newOSLogger(std::string subsystem, std::string category, std::string processType) {
  return std::make_unique<NorraOSLogger>(std::move(subsystem), std::move(category), std::move(processType));
}

void setSink(LogSink* sink) { currentSink = sink; }

}  // namespace NorraOSLoggerFactory
}  // namespace norra
