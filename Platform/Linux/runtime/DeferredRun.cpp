#include "Platform/Linux/runtime/DeferredRun.h"

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t longestDelayMicroseconds = 20'000;
constexpr std::uint64_t accuracyMicroseconds = 1'000;

}  // namespace

DeferredRun::DeferredRun(sd_event* event, std::function<void()> work) : event_(event), work_(std::move(work)) {}

void DeferredRun::request() {
  if (idle_) return;
  sd_event_source* source = nullptr;
  require(sd_event_add_defer(event_, &source, onIdle, this), "sd_event_add_defer");
  idle_.reset(source);
  sd_event_source_set_priority(source, SD_EVENT_PRIORITY_NORMAL + 1);
  requestAfter(longestDelayMicroseconds);
}

void DeferredRun::requestAfter(std::uint64_t microseconds) {
  if (timer_) return;
  sd_event_source* source = nullptr;
  require(
      sd_event_add_time_relative(event_, &source, CLOCK_MONOTONIC, microseconds, accuracyMicroseconds, onTime, this),
      "sd_event_add_time_relative");
  timer_.reset(source);
}

void DeferredRun::run() {
  idle_.reset();
  timer_.reset();
  work_();
}

int DeferredRun::onIdle(sd_event_source* /*source*/, void* self) noexcept {
  static_cast<DeferredRun*>(self)->run();
  return 0;
}

int DeferredRun::onTime(sd_event_source* /*source*/, std::uint64_t /*time*/, void* self) noexcept {
  static_cast<DeferredRun*>(self)->run();
  return 0;
}

}  // namespace norra::linux_desktop
