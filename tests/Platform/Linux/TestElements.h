// What reads elements, put together as the platform does it, for tests that begin their epochs themselves.
#pragma once

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {

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
