// The process of the service as the core sees it: its transactions, and its end when everything was delivered.
#pragma once

#include <atomic>
#include <chrono>

#include "Platform/Connection.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/runtime/SerialExecutorThread.h"
#include "Platform/Linux/service/AutomaticTermination.h"
#include "Platform/Linux/service/BusListener.h"

namespace norra::linux_desktop {

/// Ends the loop when exit() is called, and when the service was idle for a while.
class ServiceProcess final : public ProcessServices {
 public:
  struct Parts {
    EventLoop& loop;
    SerialExecutorThreads& executors;
    BusListener& listener;
  };

  /// Main thread. The parts are not owned; they outlive this, and the loop does not run after it.
  ServiceProcess(Parts parts, std::chrono::nanoseconds idleTime);
  ~ServiceProcess() override;
  ServiceProcess(const ServiceProcess&) = delete;
  ServiceProcess& operator=(const ServiceProcess&) = delete;

  void setAutomaticTerminationSupportEnabled(bool enabled) override;
  void beginTransaction() override { changeOpenTransactions(1); }
  void endTransaction() override { changeOpenTransactions(-1); }
  void exit(int status) override;

 private:
  void changeOpenTransactions(int by);

  Parts parts_;
  AutomaticTermination termination_;  // main thread only
  std::atomic<std::size_t> transactions_ = 0;
};

}  // namespace norra::linux_desktop
