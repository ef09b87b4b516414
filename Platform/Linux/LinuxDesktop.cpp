#include "Platform/Linux/LinuxDesktop.h"

#include "Platform/Linux/AbsentDesktop.h"

namespace norra::linux_desktop {
namespace {

std::unique_ptr<Workspace> newWorkspace(sd_event* /*event*/) {
  return std::make_unique<AbsentWorkspace>(
      "No X server: application switches are not seen. Start the service in a desktop session, with DISPLAY set");
}

std::unique_ptr<EventTaps> newEventTaps(sd_event* /*event*/) {
  return std::make_unique<AbsentEventTaps>(
      "No X server: clicks and keys are not seen. Start the service in a desktop session, with DISPLAY set");
}

std::unique_ptr<Accessibility> newAccessibility(sd_event* /*event*/) {
  return std::make_unique<AbsentAccessibility>(
      "No accessibility bus: applications cannot be read. Install at-spi2-core and start a new session");
}

}  // namespace

LinuxDesktop::LinuxDesktop(EventLoop& loop)
    : workspace_(newWorkspace(loop.event())),
      eventTaps_(newEventTaps(loop.event())),
      accessibility_(newAccessibility(loop.event())) {}

LinuxDesktop::~LinuxDesktop() = default;

}  // namespace norra::linux_desktop
