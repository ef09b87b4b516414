// What was found out about one thing that collection needs.
#pragma once

#include <string>
#include <utility>

namespace norra {

enum class Readiness {
  ready,
  limited,  // works in part
  missing,
};

/// Ready, unless made otherwise.
struct DesktopFinding {
  std::string what = {};
  Readiness readiness = Readiness::ready;
  /// What is wrong and what to do about it; empty where it is ready.
  std::string advice = {};
};

inline DesktopFinding missing(std::string advice) { return {{}, Readiness::missing, std::move(advice)}; }
inline DesktopFinding limited(std::string advice) { return {{}, Readiness::limited, std::move(advice)}; }

inline constexpr const char* needsSessionBus = "This cannot be known without the session bus.";

}  // namespace norra
