// Hit tests below one top-level accessible, each as its toolkit needs it.
#pragma once

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Asks the toolkit once for the element at a point of the screen; null: it says none.
AtspiReference toolkitsAnswer(const ElementView& view, CGPoint point);

/// Level by level; pages of notebooks, whose own hit test stops at their tabs, by extents.
AtspiReference hitTestGtk3(const ElementView& topLevel, CGPoint point);
/// In coordinates of the window, since it knows no others; a popover has its place in that of the window it belongs to.
AtspiReference hitTestGtk4(const ElementView& topLevel, CGPoint point, const WindowOnScreen& window);
/// The deepest element comes at once.
AtspiReference hitTestQt(const ElementView& topLevel, CGPoint point);
/// The same, but the first answer may be of the place that was asked for before.
AtspiReference hitTestWeb(const ElementView& topLevel, CGPoint point);
/// What stands on the screen of an answer for a web page.
AtspiReference withoutHiddenOption(const ElementView& topLevel, AtspiReference answer);

}  // namespace norra::linux_desktop
