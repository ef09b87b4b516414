// The accessibility bus: where it is, and how to get onto it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

/// Any thread.
class AtspiBus {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  AtspiBus() = default;
  /// Of a bus whose address is known.
  explicit AtspiBus(std::string address) : knownAddress_(std::move(address)) {}

  /// A connection that is ready for use; null when there is no such bus or it does not answer in time, which is logged
  /// once until it is there again. Asked again soon after a failure it fails at once.
  BusPtr connect();

  /// Of the bus that was reached last: one that was started anew gives the names of the former one to others.
  std::uint64_t generation() const { return generation_; }
  /// Called, with all that were given before, before connect() gives the first connection to a bus that was started
  /// anew; on its thread. To be given before the first connect().
  void onNewGeneration(std::function<void()> forget) { forgetting_.push_back(std::move(forget)); }

  /// What was wrong when it was tried last; empty: nothing, or it was not tried yet.
  std::string problem();

 private:
  bool mayTry(TimePoint now);
  void noteOutcome(bool isConnected);
  void noteIdentity(sd_bus* bus);
  bool isAnother(const sd_id128_t& identity);

  const std::optional<std::string> knownAddress_;
  std::vector<std::function<void()>> forgetting_;
  std::atomic<std::uint64_t> generation_ = 0;

  std::mutex mutex_;
  // guarded by mutex_
  TimePoint nextTry_;
  bool isFailureLogged_ = false;
  std::optional<sd_id128_t> identity_;
};

}  // namespace norra::linux_desktop
