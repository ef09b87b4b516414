// Keys as a file names them: by the names of special keys and modifiers, or by numbers where a fault is to be tried
// out.
#pragma once

#include "Platform/EventTap.h"
#include "ScenarioPlayer/JsonCursor.h"

namespace norra::scenario {

/// A key press; nothing where it says that no key event can be made of it.
std::optional<NSEvent> readKey(const JsonCursor& cursor);

}  // namespace norra::scenario
