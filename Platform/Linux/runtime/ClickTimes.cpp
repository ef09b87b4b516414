#include "Platform/Linux/runtime/ClickTimes.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

/// A percentile, by the nearest rank.
std::uint64_t percentile(const std::vector<std::uint32_t>& sorted, std::size_t hundredths) {
  return sorted.empty() ? 0 : sorted[(sorted.size() * hundredths + 99) / 100 - 1];
}

}  // namespace

Job ClickTimes::continued(Job job) {
  const auto arrival = current();
  if (!arrival) return job;
  return [this, arrival = *arrival, job = std::move(job)] {
    const Handling handling(*this, arrival);
    job();
  };
}

void ClickTimes::noteReport() {
  const auto arrival = current();
  if (!arrival) return;
  const auto taken = std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - *arrival);
  const std::lock_guard lock(mutex_);
  microseconds_[reports_++ % maxKept] = static_cast<std::uint32_t>(std::min<std::int64_t>(taken.count(), UINT32_MAX));
}

ClickTimes::Summary ClickTimes::summary() const {
  std::vector<std::uint32_t> sorted;
  {
    const std::lock_guard lock(mutex_);
    const auto kept = std::min<std::uint64_t>(reports_, maxKept);
    sorted.assign(microseconds_.begin(), microseconds_.begin() + static_cast<std::ptrdiff_t>(kept));
  }
  std::ranges::sort(sorted);
  return {sorted.size(), percentile(sorted, 50), percentile(sorted, 99)};
}

std::optional<ClickTimes::TimePoint> ClickTimes::current() const {
  const std::lock_guard lock(mutex_);
  const auto found = handled_.find(std::this_thread::get_id());
  return found == handled_.end() ? std::nullopt : std::optional(found->second);
}

void ClickTimes::setCurrent(std::optional<TimePoint> arrival) {
  const std::lock_guard lock(mutex_);
  if (arrival) {
    handled_.insert_or_assign(std::this_thread::get_id(), *arrival);
  } else {
    handled_.erase(std::this_thread::get_id());
  }
}

}  // namespace norra::linux_desktop
