// Counts of what reading from other applications costs. They only grow.
#pragma once

#include <atomic>
#include <cstdint>

namespace norra::linux_desktop {

/// Any thread.
struct AtspiStatistics {
  /// Calls sent.
  std::atomic<std::uint64_t> reads = 0;
  /// Sets of calls that were sent together and awaited together.
  std::atomic<std::uint64_t> waves = 0;
  /// Calls whose answer did not come in time.
  std::atomic<std::uint64_t> timeOuts = 0;
  /// Calls that were not sent because the application rests.
  std::atomic<std::uint64_t> spared = 0;
};

}  // namespace norra::linux_desktop
