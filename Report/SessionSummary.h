// What a recorded session amounts to: which application was in front when, for how long, and how often each kind of
// action was reported.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Report/SessionReading.h"

namespace norra::report {

struct Application {
  std::string identifier;
  /// The name that the user sees. With an empty identifier too: the application in front is not known, as after a
  /// start, until the first switch is reported.
  std::string name;
  Duration timeInFront{};
  std::size_t switches = 0;
  std::size_t actions = 0;
  bool operator==(const Application&) const = default;
};

/// A stretch of time, not empty, with one application in front.
struct ApplicationSpan {
  std::size_t application = 0;
  Instant begin;
  Instant end;
  bool operator==(const ApplicationSpan&) const = default;
};

/// A stretch of time, not empty, in which nothing was collected.
struct Pause {
  Instant begin;
  Instant end;
  bool operator==(const Pause&) const = default;
};

struct SessionSummary {
  /// In the order of their first appearance.
  std::vector<Application> applications;
  std::vector<ApplicationSpan> spans;
  std::vector<Pause> pauses;
  /// For each report the application it belongs to, as an index; nothing for starts and stops of collection.
  std::vector<std::optional<std::size_t>> applicationOfReport;
  /// By the kind's place in CodingKeys.
  std::array<std::size_t, std::variant_size_v<Action>> countOfKind{};
  /// The sum of all spans.
  Duration collected{};
};

/// Reports are taken in their order, whatever their dates. A clock that was set back costs no span its length: the
/// time between two reports counts where it is positive.
SessionSummary summarize(const std::vector<RecordedReport>& reports);

}  // namespace norra::report
