// Which element lies under a point of the screen.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/AtspiReference.h"

namespace norra::linux_desktop {

class AtspiContext;

/// The deepest element under a point; null: none that can be known. The window under the point decides the
/// application. What it takes does not depend on how many elements the application has.
AtspiReference elementAt(AtspiContext& context, CGPoint point);

}  // namespace norra::linux_desktop
