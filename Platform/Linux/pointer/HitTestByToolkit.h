// Hit tests below one top-level accessible, each as its toolkit needs it.
#pragma once

#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Asks the toolkit once for the element at a point of the screen; null: it says none.
AtspiReference toolkitsAnswer(const ElementView& view, CGPoint point);

/// The deepest element at the point, the top-level itself if it knows of none.
AtspiReference hitTest(const ElementView& topLevel, const PointedAt& at);

}  // namespace norra::linux_desktop
