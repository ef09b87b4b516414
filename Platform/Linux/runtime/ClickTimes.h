// How long the reports of clicks take. A click is followed from the arrival of its event, over the jobs that are posted
// while it is handled, to the report; nobody between the two has to know. What is told is the median and a percentile
// of the latest reports: one click that an application held up says nothing of the others.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

#include "Platform/RunLoop.h"

namespace norra::linux_desktop {

/// Any thread.
class ClickTimes {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  static constexpr std::size_t maxKept = 1024;

  /// Of the latest reports, in microseconds; zero where there is none.
  struct Summary {
    std::uint64_t count = 0;
    std::uint64_t median = 0;
    std::uint64_t percentile99 = 0;
  };

  /// While it lives, what the calling thread does belongs to the click that arrived then.
  class Handling {
   public:
    Handling(ClickTimes& times, TimePoint arrival) : times_(times) { times_.setCurrent(arrival); }
    ~Handling() { times_.setCurrent(std::nullopt); }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

   private:
    ClickTimes& times_;
  };

  /// The job as a part of the click that the calling thread handles, if it handles one.
  Job continued(Job job);

  /// A report was handed over. Counts where the calling thread handles a click.
  void noteReport();

  Summary summary() const;

 private:
  std::optional<TimePoint> current() const;
  void setCurrent(std::optional<TimePoint> arrival);

  mutable std::mutex mutex_;

  // Guarded by mutex_.
  std::map<std::thread::id, TimePoint> handled_;
  std::array<std::uint32_t, maxKept> microseconds_{};  // a ring
  std::uint64_t reports_ = 0;
};

}  // namespace norra::linux_desktop
