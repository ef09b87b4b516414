#include "Platform/Linux/LinuxPlatform.h"

#include <utility>

#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/runtime/SerialExecutorThread.h"
#include "Platform/Linux/service/ServiceProcess.h"
#include "Platform/Linux/service/StatisticsObject.h"

namespace norra::linux_desktop {

struct LinuxPlatform::Parts {
  Parts(EventLoop& loop, BusListener& listener, const Rehearsals& rehearsals, std::chrono::nanoseconds idleTime);
  ServiceStatistics statistics();

  EventLoop& loop;
  BusListener& listener;
  LinuxDesktop desktop;
  SystemClock clock;
  SerialExecutorThreads executors;
  ServiceProcess process;
  StatisticsObject statisticsObject;
};

LinuxPlatform::Parts::Parts(EventLoop& theLoop, BusListener& theListener, const Rehearsals& rehearsals,
                            std::chrono::nanoseconds idleTime)
    : loop(theLoop),
      listener(theListener),
      desktop(loop, rehearsals),
      executors(loop),
      process({loop, executors, listener}, idleTime),
      statisticsObject(listener.bus(), [this] { return statistics(); }) {}

ServiceStatistics LinuxPlatform::Parts::statistics() {
  const auto clicks = loop.clickTimes().summary();
  ServiceStatistics statistics{.reportsSent = listener.counts().sent,
                               .reportsLost = listener.counts().lost,
                               .eventsDropped = executors.droppedJobs(),
                               .clicksMeasured = clicks.count,
                               .clickToReportMedian = clicks.median,
                               .clickToReport99thPercentile = clicks.percentile99};
  desktop.describe(statistics);
  return statistics;
}

LinuxPlatform::Created LinuxPlatform::create(Rehearsals rehearsals, std::chrono::nanoseconds idleTime) {
  auto loop = std::make_unique<EventLoop>();
  loop->onTerminationSignals([&loop = *loop] { loop.end(std::nullopt); });
  auto [listener, problem] = BusListener::open(*loop);
  if (!listener) return {nullptr, problem};
  return {std::unique_ptr<LinuxPlatform>(
              new LinuxPlatform(std::move(loop), std::move(listener), std::move(rehearsals), idleTime)),
          {}};
}

LinuxPlatform::LinuxPlatform(std::unique_ptr<EventLoop> loop, std::unique_ptr<BusListener> listener,
                             Rehearsals rehearsals, std::chrono::nanoseconds idleTime)
    : loop_(std::move(loop)), listener_(std::move(listener)), rehearsals_(std::move(rehearsals)), idleTime_(idleTime) {}

LinuxPlatform::~LinuxPlatform() = default;

Platform LinuxPlatform::facilities() {
  if (!parts_) parts_ = std::make_unique<Parts>(*loop_, *listener_, rehearsals_, idleTime_);
  return {.accessibility = parts_->desktop.accessibility(),
          .eventTaps = parts_->desktop.eventTaps(),
          .workspace = parts_->desktop.workspace(),
          .mainRunLoop = *loop_,
          .serialExecutors = parts_->executors,
          .clock = parts_->clock,
          .listener = *listener_,
          .process = parts_->process};
}

}  // namespace norra::linux_desktop
