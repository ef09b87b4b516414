// What a script or an extension within a compositor tells of its windows, as one text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Linux/wayland/Compositor.h"

namespace norra::linux_desktop {

struct CompositorState {
  std::optional<CompositorWindow> active;
  std::optional<PointedWindow> pointed;
  /// Those that are down, by their codes in linux/input-event-codes.h.
  std::vector<std::uint16_t> buttons;
};

/// Nothing: it is no such text.
std::optional<CompositorState> readCompositorState(std::string_view json);

}  // namespace norra::linux_desktop
