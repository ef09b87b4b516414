// Which reads belong together: those of the handling of one event. What was read once is not read again before the
// next, so that the answers fit together and no application is asked the same thing twice for one click.
#pragma once

#include <systemd/sd-event.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <thread>

namespace norra::linux_desktop {

class ReadingEpoch {
 public:
  virtual ~ReadingEpoch() = default;
  /// Another number for each event that the calling thread handles; nothing where none is handled, and then nothing
  /// that is read is kept. Any thread.
  virtual std::optional<std::uint64_t> current() const = 0;
};

/// The events of the main thread's loop: each iteration of it handles one.
class EventLoopEpoch final : public ReadingEpoch {
 public:
  /// Made on the thread of the loop, which must outlive this.
  explicit EventLoopEpoch(sd_event* event) : event_(event) {}

  std::optional<std::uint64_t> current() const override {
    std::uint64_t iteration = 0;
    if (std::this_thread::get_id() != thread_ || sd_event_get_iteration(event_, &iteration) < 0) return std::nullopt;
    return iteration;
  }

 private:
  sd_event* const event_;
  const std::thread::id thread_ = std::this_thread::get_id();
};

/// Epochs that a program without a loop begins by itself, the same for all its threads.
class CountedEpoch final : public ReadingEpoch {
 public:
  void begin() { ++number_; }
  std::optional<std::uint64_t> current() const override { return number_; }

 private:
  std::atomic<std::uint64_t> number_ = 0;
};

}  // namespace norra::linux_desktop
