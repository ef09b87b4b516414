// What the accessibility bus says of the window that a person works in, for display servers that do not say it all.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"
#include "Platform/Registration.h"

namespace norra::linux_desktop {

struct ActiveTopLevel {
  /// Tells windows apart.
  std::uint32_t identity = 0;
  ProcessIdentifier process = 0;
  std::string title;
};

class ActiveTopLevels {
 public:
  virtual ~ActiveTopLevels() = default;
  /// The one that its application calls active, and called so when it was asked. Nothing: none does. Any thread; comes
  /// within a bound.
  virtual std::optional<ActiveTopLevel> active() = 0;
  /// Calls `changed`, until the result is let go, when another one may be active. One at a time; main thread.
  [[nodiscard]] virtual std::unique_ptr<Registration> follow(std::function<void()> changed) = 0;
};

}  // namespace norra::linux_desktop
