// Calls to applications over the accessibility bus.
//
// Calls that do not depend on each other travel together (a wave, or batch) and are awaited together, so a wave costs
// little more than its slowest answer. It waits for a bounded time; an application that did not use it has its later
// calls refused for a while (RestingApplications.h), and whatever answers late is passed over when it comes.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiBus.h"
#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/atspi/RestingApplications.h"

namespace norra::linux_desktop {

/// All arguments of the Collection interface's GetMatches: the first elements below the target that have a state.
struct FirstWithState {
  std::uint8_t state = 0;
  std::int32_t count = 1;
};

using AtspiArgument = std::variant<std::int32_t, std::uint32_t, std::string, FirstWithState>;

/// A call of a method. The texts of interface and member are literals.
struct AtspiCall {
  AtspiReference target;
  const char* interface = nullptr;
  const char* member = nullptr;
  std::vector<AtspiArgument> arguments;
};

/// The call that reads one property.
AtspiCall propertyCall(AtspiReference target, const char* interface, const char* property);

/// The answer to a call; no message beside an error.
struct AtspiReply {
  AXError error = axError::cannotComplete;
  MessagePtr message;
};

/// What reading from other applications costs. Counts that only grow. Any thread.
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

/// What all connections share. Any thread.
struct AtspiShared {
  AtspiBus bus;
  RestingApplications resting;
  AtspiStatistics statistics;
};

/// One thread's way to the accessibility bus. It connects at its first use, and again when the bus was lost.
class AtspiConnection {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// The longest that a wave waits.
  static constexpr std::chrono::milliseconds limit{250};

  explicit AtspiConnection(AtspiShared& shared) : shared_(shared) {}
  AtspiConnection(const AtspiConnection&) = delete;
  AtspiConnection& operator=(const AtspiConnection&) = delete;

  /// One answer for each call, in their order; those that are not there by the deadline, or within the limit, fail
  /// with cannotComplete. An application that was given the whole limit and did not answer rests; its calls fail at
  /// once until it gets another chance.
  std::vector<AtspiReply> exchange(std::span<const AtspiCall> calls, TimePoint deadline = TimePoint::max());

  /// See AtspiBus::generation.
  std::uint64_t generation() const { return shared_.bus.generation(); }

 private:
  struct Pending;

  bool isReady();
  bool isConnected();
  int send(const AtspiCall& call, Pending& pending);
  void dispatchLateReplies();
  void noteTimeOuts(std::span<const AtspiCall> calls, std::span<const Pending> pending, TimePoint deadline);
  static int onReply(sd_bus_message* message, void* pending, sd_bus_error* error) noexcept;
  static int onAnyMessage(sd_bus_message* message, void* connection, sd_bus_error* error) noexcept;

  AtspiShared& shared_;
  BusPtr bus_;
  int uncalledMessages_ = 0;  // that came on it and are no replies
};

}  // namespace norra::linux_desktop
