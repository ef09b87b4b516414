#pragma once

#include <optional>
#include <string_view>

#include "Platform/EventTap.h"

namespace norra::scenario {

/// The code point of a special key by its member name, such as "upArrow" or "f13"; nothing for another text.
std::optional<NSEvent::SpecialKey> specialKeyNamed(std::string_view name);

}  // namespace norra::scenario
