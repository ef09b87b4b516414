// Applications that did not answer in time.
//
// To wait for an application that hangs costs the limit of a wave every time, and the person who clicks elsewhere
// meanwhile would wait with it. So one that did not answer rests: it is left alone for a while, and its calls fail at
// once. Then it gets another chance; the while grows with every chance that is missed (a back-off), and an answer ends
// it. An event of the application is a sign of life and worth a chance too, though not every one: some send events and
// answer nothing.
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace norra::linux_desktop {

/// Any thread.
class RestingApplications {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  static constexpr std::chrono::milliseconds firstRest{1000};
  static constexpr std::chrono::milliseconds longestRest{16000};
  /// Between two rests of an application that an event ends.
  static constexpr std::chrono::milliseconds pauseBetweenChances{500};

  /// Whether the application with this bus name is to be left alone.
  bool isResting(std::string_view busName, TimePoint now) const;

  void didNotAnswer(std::string_view busName, TimePoint now);
  /// It answered, in time or late. Also for whoever was never late.
  void showedLife(std::string_view busName);
  /// An event gives a resting application another chance, but not every one: it may send events and answer nothing.
  void sentEvent(std::string_view busName, TimePoint now);
  /// It has left the bus.
  void forget(std::string_view busName);
  void clear();

  /// How many are left alone now.
  std::size_t count(TimePoint now) const;

 private:
  struct Rest {
    TimePoint until;
    std::chrono::milliseconds length{0};
    TimePoint nextChanceByEvent;
  };

  mutable std::mutex mutex_;
  std::map<std::string, Rest, std::less<>> rests_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
