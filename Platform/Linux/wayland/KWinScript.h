// The script that tells of KWin's windows from inside of it. KWin runs scripts of its user; this one is loaded while
// somebody listens and taken away afterwards.
#pragma once

#include <string>
#include <string_view>

namespace norra::linux_desktop {

/// Calls Tell on the listener's object, with one text, when another window is active or another lies under the pointer;
/// where the pointer is to be told, also when that has moved.
std::string kwinScriptFor(std::string_view listener, bool tellsPointer);

}  // namespace norra::linux_desktop
