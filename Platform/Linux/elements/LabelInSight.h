// The label that a person takes a field for having, where the application has not said which one it is: the text right
// before it, or right above.
#pragma once

#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Of what is written in, chosen in or moved, and has no name of its own. Null: no label lies there, or it is one of
/// something else.
AtspiReference labelInSight(const ElementView& view);

}  // namespace norra::linux_desktop
