#pragma once

#include <chrono>
#include <string>

namespace norra {

/// What the service told of one interaction.
struct Report {
  /// The JSON text of one action; empty when the service could not write it.
  std::string event;
  std::chrono::system_clock::time_point date;
  bool isApplicationEvent = false;
};

}  // namespace norra
