#include "Platform/Linux/LinuxDesktop.h"

#include "Platform/Linux/DesktopReadiness.h"
#include "Platform/Linux/accessibility/AtspiAccessibility.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr int statusWithoutServer = 1;

}  // namespace

InputListeners LinuxDesktop::listeners(EventLoop& loop) {
  return {.isSecureInput = [this] { return accessibility_ && accessibility_->isSecretFocused(); },
          .pressed =
              [this](std::optional<CGPoint> place) {
                if (accessibility_) accessibility_->notePress(place);
              },
          .released =
              [this] {
                if (accessibility_) accessibility_->noteRelease();
              },
          .windowActivated =
              [this] {
                if (accessibility_) accessibility_->noteActivation();
              },
          .clickTimes = &loop.clickTimes()};
}

LinuxDesktop::LinuxDesktop(EventLoop& loop, Rehearsals rehearsals)
    // Without it nothing is left to watch: clients are better told by the service's end.
    : display_(openDisplay(loop.event(), listeners(loop), [&loop] { loop.end(statusWithoutServer); })),
      absentWorkspace_(windowReadiness(facts()).advice),
      absentEventTaps_(inputReadiness(facts()).advice),
      accessibility_(std::make_unique<AtspiAccessibility>(loop.event(), display_ ? display_->windows() : noWindows_,
                                                          eventTaps(), std::move(rehearsals))) {
  if (display_) display_->use(accessibility_->activeTopLevels());
  const auto advice = facts().isWayland ? inputReadiness(facts()).advice : std::string();
  if (!advice.empty()) platformLogger().error(advice);
}

LinuxDesktop::~LinuxDesktop() = default;

Workspace& LinuxDesktop::workspace() {
  auto* workspace = display_ ? display_->workspace() : nullptr;
  return workspace ? *workspace : absentWorkspace_;
}

EventTaps& LinuxDesktop::eventTaps() {
  auto* eventTaps = display_ ? display_->eventTaps() : nullptr;
  return eventTaps ? *eventTaps : absentEventTaps_;
}

Accessibility& LinuxDesktop::accessibility() { return *accessibility_; }

DisplayFacts LinuxDesktop::facts() const {
  auto facts = display_ ? display_->facts() : DisplayFacts{};
  facts.hasActiveWindow = true;  // there need not be one all the time
  return facts;
}

void LinuxDesktop::describe(ServiceStatistics& statistics) {
  statistics.windows = windowReadiness(facts()).advice;
  statistics.input = inputReadiness(facts()).advice;
  accessibility_->describe(statistics);
}

}  // namespace norra::linux_desktop
