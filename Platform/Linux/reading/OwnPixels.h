// The pixels that an application tells places in.
//
// Where a screen is so fine that everything on it is drawn larger, applications go on counting in the pixels that they
// would draw with otherwise. The display server counts the screen's.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiMessage.h"

namespace norra::linux_desktop {

/// How an application's own pixels lie on the screen; the screen's, unless it says otherwise.
struct OwnPixels {
  /// How many pixels of the screen one of its own is wide.
  double scale = 1;
  /// Where it takes the origin of the screen to be, in its own pixels.
  CGPoint origin{0, 0};

  CGPoint of(CGPoint onScreen) const { return {onScreen.x / scale + origin.x, onScreen.y / scale + origin.y}; }
  AtspiRectangle onScreen(const AtspiRectangle& own) const;
  bool areOfScreen() const { return scale == 1; }
};

}  // namespace norra::linux_desktop
