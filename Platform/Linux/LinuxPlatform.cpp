#include "Platform/Linux/LinuxPlatform.h"

#include <utility>

namespace norra::linux_desktop {

LinuxPlatform::Created LinuxPlatform::create(std::chrono::nanoseconds idleTime) {
  auto loop = std::make_unique<EventLoop>();
  loop->onTerminationSignals([&loop = *loop] { loop.end(std::nullopt); });
  auto [listener, problem] = BusListener::open(*loop);
  if (!listener) return {nullptr, problem};
  return {std::unique_ptr<LinuxPlatform>(new LinuxPlatform(std::move(loop), std::move(listener), idleTime)), {}};
}

LinuxPlatform::LinuxPlatform(std::unique_ptr<EventLoop> loop, std::unique_ptr<BusListener> listener,
                             std::chrono::nanoseconds idleTime)
    : loop_(std::move(loop)),
      listener_(std::move(listener)),
      desktop_(*loop_),
      executors_(*loop_),
      process_({*loop_, executors_, *listener_}, idleTime),
      statisticsObject_(listener_->bus(), [this] { return statistics(); }) {}

ServiceStatistics LinuxPlatform::statistics() {
  const auto clicks = loop_->clickTimes().summary();
  ServiceStatistics statistics{.reportsSent = listener_->counts().sent,
                               .reportsLost = listener_->counts().lost,
                               .eventsDropped = executors_.droppedJobs(),
                               .clicksMeasured = clicks.count,
                               .clickToReportMedian = clicks.median,
                               .clickToReport99thPercentile = clicks.percentile99};
  desktop_.describe(statistics);
  return statistics;
}

Platform LinuxPlatform::facilities() {
  return {.accessibility = desktop_.accessibility(),
          .eventTaps = desktop_.eventTaps(),
          .workspace = desktop_.workspace(),
          .mainRunLoop = *loop_,
          .serialExecutors = executors_,
          .clock = clock_,
          .listener = *listener_,
          .process = process_};
}

}  // namespace norra::linux_desktop
