// The quiet time after which what somebody is doing counts as done.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "Platform/RunLoop.h"

namespace norra {

/// Runs an action once it has been quiet for a while. Main thread; destruction cancels a pending run.
class Debouncer {
 public:
  Debouncer(MainRunLoop& mainRunLoop, std::chrono::nanoseconds delay, std::function<void()> action);
  ~Debouncer();
  Debouncer(const Debouncer&) = delete;
  Debouncer& operator=(const Debouncer&) = delete;

  /// Starts the quiet time anew.
  void debounce();
  void cancel();

 private:
  MainRunLoop& mainRunLoop_;
  std::chrono::nanoseconds delay_;
  std::function<void()> action_;
  std::shared_ptr<DispatchWorkItem> workItem_;
};

}  // namespace norra
