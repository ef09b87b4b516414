// What a hit test is told of the pointer.
#pragma once

#include <functional>

#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {

/// Places are in the application's own pixels.
struct PointedAt {
  CGPoint point;
  /// The window there.
  WindowOnScreen window;
  /// A button was just pressed there. What the application has not found out yet is asked for again a moment later.
  bool isPress = false;
  /// Gives the element of the application that has the keyboard focus; null: none is known. It may read.
  std::function<AtspiReference()> focused = [] { return AtspiReference{}; };
  /// The same, but what had it when the button was pressed.
  std::function<AtspiReference()> focusedBefore = [] { return AtspiReference{}; };
  /// The same, if it got the focus since the button was pressed.
  std::function<AtspiReference()> focusedByPress = [] { return AtspiReference{}; };
};

}  // namespace norra::linux_desktop
