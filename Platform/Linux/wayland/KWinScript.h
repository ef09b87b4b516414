// The script that tells of KWin's windows from inside of it. KWin runs scripts of its user; this one is loaded while
// somebody listens and taken away afterwards.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Linux/wayland/Compositor.h"

namespace norra::linux_desktop {

inline constexpr const char* kwinListenerPath = "/com/norra/Compositor";
inline constexpr const char* kwinListenerInterface = "com.norra.Compositor";

/// Calls Tell on the listener's object, with one text, when another window is active or another lies under the pointer;
/// where the pointer is to be told, also when that has moved.
std::string kwinScriptFor(std::string_view listener, bool tellsPointer);

/// What such a text says.
struct KWinState {
  std::optional<CompositorWindow> active;
  std::optional<PointedWindow> pointed;
};

/// Nothing: it is no such text.
std::optional<KWinState> readKWinState(std::string_view json);

}  // namespace norra::linux_desktop
