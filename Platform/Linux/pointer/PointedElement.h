// Which element lies under a point of the screen.
#pragma once

#include <optional>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

class AtspiContext;

/// The deepest element under a point; null: none that can be known. The window under the point decides the
/// application. What it takes does not depend on how many elements the application has.
AtspiReference elementAt(AtspiContext& context, CGPoint point);

/// A press may open a list, and a release may close one: browsers find nothing in or below a list that is open, and
/// answer for a place only when they are asked again. To be called for every press of a button that clicks; only such
/// applications are asked. Nothing: it is not known where the pointer is.
void notePress(AtspiContext& context, std::optional<CGPoint> place);

}  // namespace norra::linux_desktop
