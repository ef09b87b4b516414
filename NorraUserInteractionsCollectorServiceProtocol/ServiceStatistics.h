// What the service says of its own work. The XML file beside this one tells the meaning of each property. One table of
// members serves the bus, the client and the words for a person.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace norra {

/// All counts begin with the service's process; a text is empty where the capability works, otherwise it says why not.
struct ServiceStatistics {
  std::uint64_t reportsSent = 0;
  std::uint64_t reportsLost = 0;
  std::uint64_t eventsDropped = 0;
  std::uint64_t reads = 0;
  std::uint64_t waves = 0;
  std::uint64_t timeOuts = 0;
  std::uint64_t readsSpared = 0;
  std::uint64_t restingApplications = 0;
  std::uint64_t clicksMeasured = 0;
  std::uint64_t clickToReportMedian = 0;
  std::uint64_t clickToReport99thPercentile = 0;
  std::string input = {};
  std::string windows = {};
  std::string accessibility = {};

  bool operator==(const ServiceStatistics&) const = default;
};

/// A property on the bus, and the words for a person.
template <typename Value>
struct StatisticsProperty {
  const char* name;
  const char* words;
  Value ServiceStatistics::*value;
};

inline constexpr std::array<StatisticsProperty<std::uint64_t>, 11> statisticsNumbers{{
    {"reportsSent", "reports sent", &ServiceStatistics::reportsSent},
    {"reportsLost", "reports lost", &ServiceStatistics::reportsLost},
    {"eventsDropped", "events dropped", &ServiceStatistics::eventsDropped},
    {"reads", "calls to applications", &ServiceStatistics::reads},
    {"waves", "waves of calls", &ServiceStatistics::waves},
    {"timeOuts", "calls without an answer in time", &ServiceStatistics::timeOuts},
    {"readsSpared", "calls spared to resting applications", &ServiceStatistics::readsSpared},
    {"restingApplications", "applications resting now", &ServiceStatistics::restingApplications},
    {"clicksMeasured", "latest clicks measured", &ServiceStatistics::clicksMeasured},
    {"clickToReportMedian", "click to report, median (µs)", &ServiceStatistics::clickToReportMedian},
    {"clickToReport99thPercentile", "click to report, 99th percentile (µs)",
     &ServiceStatistics::clickToReport99thPercentile},
}};

inline constexpr std::array<StatisticsProperty<std::string>, 3> statisticsTexts{{
    {"input", "clicks and keys", &ServiceStatistics::input},
    {"windows", "windows and applications", &ServiceStatistics::windows},
    {"accessibility", "elements of applications", &ServiceStatistics::accessibility},
}};

}  // namespace norra
