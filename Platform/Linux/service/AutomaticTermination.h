// When nobody needs the service it ends by itself: the bus starts it again with the next call, and until then it
// watches nobody and costs nothing.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

#include "Platform/RunLoop.h"

namespace norra::linux_desktop {

/// Calls `end` when, for the whole idle time, it was enabled and neither a client was connected nor a transaction open.
/// Calls it again after another idle time if that changed nothing. Main thread.
class AutomaticTermination {
 public:
  /// `loop` outlives this.
  AutomaticTermination(MainRunLoop& loop, std::chrono::nanoseconds idleTime, std::function<void()> end);
  ~AutomaticTermination();
  AutomaticTermination(const AutomaticTermination&) = delete;
  AutomaticTermination& operator=(const AutomaticTermination&) = delete;

  void setEnabled(bool enabled);
  void setConnectedClients(std::size_t count);
  void setOpenTransactions(std::size_t count);

 private:
  void update();
  void idleTimePassed();

  MainRunLoop& loop_;
  const std::chrono::nanoseconds idleTime_;
  const std::function<void()> end_;
  bool isEnabled_ = false;
  std::size_t connectedClients_ = 0;
  std::size_t openTransactions_ = 0;
  std::shared_ptr<DispatchWorkItem> pendingEnd_;
};

}  // namespace norra::linux_desktop
