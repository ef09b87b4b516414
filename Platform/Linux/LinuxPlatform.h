// The whole platform on a Linux desktop.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "Platform/Linux/LinuxDesktop.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/runtime/SerialExecutorThread.h"
#include "Platform/Linux/runtime/SystemClock.h"
#include "Platform/Linux/service/BusListener.h"
#include "Platform/Linux/service/ServiceProcess.h"
#include "Platform/Linux/service/StatisticsObject.h"
#include "Platform/Platform.h"

namespace norra::linux_desktop {

/// How long the service waits for somebody who needs it before it ends by itself.
inline constexpr std::chrono::seconds defaultIdleTime{30};

/// Made, used and ended on the main thread. What it hands out lives as long as it does.
class LinuxPlatform {
 public:
  struct Created {
    std::unique_ptr<LinuxPlatform> platform;  // null where the service cannot be offered
    std::string problem;                      // then: why, and what to do
  };
  static Created create(std::chrono::nanoseconds idleTime = defaultIdleTime);

  Platform facilities();

 private:
  LinuxPlatform(std::unique_ptr<EventLoop> loop, std::unique_ptr<BusListener> listener,
                std::chrono::nanoseconds idleTime);
  ServiceStatistics statistics();

  std::unique_ptr<EventLoop> loop_;
  std::unique_ptr<BusListener> listener_;
  LinuxDesktop desktop_;
  SystemClock clock_;
  SerialExecutorThreads executors_;
  ServiceProcess process_;
  StatisticsObject statisticsObject_;
};

}  // namespace norra::linux_desktop
