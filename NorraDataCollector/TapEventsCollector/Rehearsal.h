// What will be asked of an element when the user acts on it, asked without reporting anything: a platform may have the
// answers ready before the application acts.
#pragma once

#include "Platform/Accessibility.h"

namespace norra {

/// Asks all that a click on the element would be told by. Whether it would be told. Any thread.
bool rehearseClick(const AXUIElement& element);

/// Asks all that a key press in the element would be told by. Whether the element says what it is. Any thread.
bool rehearseKey(const AXUIElement& element);

}  // namespace norra
