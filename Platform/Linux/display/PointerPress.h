// A press of a button that clicks, as far as it matters for what lies under the pointer.
#pragma once

#include <cmath>
#include <functional>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

/// Asks an element all that will be asked of it when it was clicked. Whether the click would be told.
using ClickRehearsal = std::function<bool(const AXUIElement& element)>;

/// Whether the pointer moved no further than it does while a button is clicked.
inline bool isSamePlace(CGPoint press, CGPoint release) {
  constexpr double steadyHandPixels = 4;
  return std::abs(press.x - release.x) <= steadyHandPixels && std::abs(press.y - release.y) <= steadyHandPixels;
}

}  // namespace norra::linux_desktop
