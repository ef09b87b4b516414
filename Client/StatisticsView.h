// What a running service says of its own work.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

/// Why there are no statistics, and what to do.
struct NoStatistics {
  std::string problem;
};

/// Asks the service, for a bounded time; one that does not run is not started. Main thread.
std::variant<ServiceStatistics, NoStatistics> readStatistics(linux_desktop::EventLoop& loop);

/// What of the desktop the service cannot see, and what to do, in sentences; empty: it sees everything.
std::vector<std::string> shortcomingsIn(const ServiceStatistics& statistics);

/// One property a line, for a person.
std::string textOf(const ServiceStatistics& statistics);

}  // namespace norra
