// The service's statistics on the session bus, as read-only properties. They count and time, and hold nothing that a
// report holds, so whoever may talk to the service may read them.
#pragma once

#include <functional>
#include <vector>

#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

/// Main thread. Ends with its destruction.
class StatisticsObject {
 public:
  using Source = std::function<ServiceStatistics()>;

  /// `bus` is not owned and outlives this. The source is asked anew for every property. Where the bus does not serve
  /// the object, which is logged, the service goes on without.
  StatisticsObject(sd_bus* bus, Source source);
  StatisticsObject(const StatisticsObject&) = delete;
  StatisticsObject& operator=(const StatisticsObject&) = delete;

 private:
  static std::vector<sd_bus_vtable> newProperties();
  static int onGet(sd_bus* bus, const char* path, const char* interface, const char* property, sd_bus_message* reply,
                   void* object, sd_bus_error* error) noexcept;

  const Source source_;
  const std::vector<sd_bus_vtable> properties_ = newProperties();
  SlotPtr slot_;
};

}  // namespace norra::linux_desktop
