// The whole platform on a Linux desktop: its parts are made here, in the order in which they need each other, and end
// in the reverse one.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/service/BusListener.h"
#include "Platform/Platform.h"

namespace norra::linux_desktop {

/// How long the service waits for somebody who needs it before it ends by itself.
inline constexpr std::chrono::seconds defaultIdleTime{30};

/// Made, used and ended on the main thread. What it hands out lives as long as it does.
class LinuxPlatform {
 public:
  struct Created {
    std::unique_ptr<LinuxPlatform> platform;  // null where the service cannot be offered
    std::string problem;                      // then: why, and what to do
  };
  /// Takes the service's name on the session bus; looks at nothing yet, and logs nothing.
  /// Without rehearsals, clicks and keys are told by what is there when they are over.
  static Created create(Rehearsals rehearsals = {}, std::chrono::nanoseconds idleTime = defaultIdleTime);
  ~LinuxPlatform();
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  /// The first call opens the desktop, and logs what is missing there.
  Platform facilities();

 private:
  struct Parts;

  LinuxPlatform(std::unique_ptr<EventLoop> loop, std::unique_ptr<BusListener> listener, Rehearsals rehearsals,
                std::chrono::nanoseconds idleTime);

  const std::unique_ptr<EventLoop> loop_;
  const std::unique_ptr<BusListener> listener_;
  const Rehearsals rehearsals_;
  const std::chrono::nanoseconds idleTime_;
  std::unique_ptr<Parts> parts_;  // null before the first call of facilities()
};

}  // namespace norra::linux_desktop
