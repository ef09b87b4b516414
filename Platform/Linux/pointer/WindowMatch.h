// Which of an application's top-level accessibles belongs to a window of the display server, and how large the
// application draws in it. Neither side knows the other: titles, places and sizes have to do.
#pragma once

#include <vector>

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

struct TopLevelCandidate {
  AtspiReference reference;
  OwnPixels pixels;
  bool isActive = false;
};

/// The top-level accessibles of an application that look most like the window: by the title, where one has it, then by
/// the place and the size. More than one where nothing tells them apart.
std::vector<TopLevelCandidate> topLevelsLike(const ElementView& root, const WindowOnScreen& window);

/// How large the application draws in a window that is known to be of this top-level accessible.
OwnPixels pixelsIn(const ElementView& topLevel, const WindowOnScreen& window);

/// What a toolkit whose popovers are windows shows in this one, which is of its size: the popover that what was clicked
/// last lies in or has opened, else the element around the keyboard focus, else, which costs hundreds of calls while
/// the popover may close, the first open one. Null: none is.
AtspiReference popoverOf(const ElementView& root, const WindowOnScreen& window, const AtspiReference& lastClicked = {});

/// The window as its application takes it to be.
WindowOnScreen inOwnPixels(WindowOnScreen window, const OwnPixels& pixels);

}  // namespace norra::linux_desktop
