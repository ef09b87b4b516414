// What reads elements, put together as the platform does it, for tests that begin their epochs themselves.
#pragma once

#include <unistd.h>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {

/// A desktop with one window, of this process.
class OneWindow final : public WindowsOnScreen {
 public:
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint) override { return window(); }
  std::optional<WindowOnScreen> activeWindow() override { return window(); }

 private:
  static WindowOnScreen window() {
    WindowOnScreen window;
    window.process = getpid();
    return window;
  }
};

struct TestElements {
  explicit TestElements(WindowsOnScreen& onScreen) : windows(onScreen) {}

  WindowsOnScreen& windows;
  CountedEpoch epoch;
  AtspiSession session{epoch, toolkitNamed};
  Focus focus{session};
  PointedElement pointed{session, focus, windows};
  ElementHandles handles{session, focus, pointed, windows};
};

}  // namespace norra::linux_desktop
