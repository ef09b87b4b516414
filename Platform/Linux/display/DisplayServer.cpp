
#include "Platform/Linux/display/DisplayServer.h"

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
void MissingFacility::report() const {
  if (!isReported_.exchange(true)) platformLogger().error(problem_);
}

std::unique_ptr<EventTap> AbsentEventTaps::createEventTap(CGEventMask, CGEventTapCallback) {
  missing_.report();
  return nullptr;
}

std::optional<NSRunningApplication> AbsentWorkspace::frontmostApplication() const {
  missing_.report();
  return std::nullopt;
}

std::optional<NSRunningApplication> AbsentWorkspace::runningApplication(ProcessIdentifier) const {
  missing_.report();
  return std::nullopt;
}

std::unique_ptr<Registration> AbsentWorkspace::onActivation(ActivationHandler) {
  missing_.report();
  return std::make_unique<Registration>();
}

}  // namespace norra::linux_desktop
