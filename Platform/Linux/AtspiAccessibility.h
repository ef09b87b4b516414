// The accessibility of the real desktop.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/AtspiContext.h"
#include "Platform/Linux/ReadingEpoch.h"

namespace norra::linux_desktop {

/// Made on the main thread. Elements that it gives must not be used after it has gone.
class AtspiAccessibility final : public Accessibility {
 public:
  /// `event`, the loop of the main thread, and `windows` must outlive this.
  AtspiAccessibility(sd_event* event, WindowsOnScreen& windows) : epoch_(event), context_(epoch_, windows) {}

  AXUIElement createSystemWide() override { return context_.systemWide(); }
  AXUIElement createApplication(ProcessIdentifier process) override { return context_.application(process); }
  AXResult<std::unique_ptr<AXObserver>> createObserver(ProcessIdentifier process, AXObserverCallback callback) override;

 private:
  const EventLoopEpoch epoch_;
  AtspiContext context_;
};

}  // namespace norra::linux_desktop
