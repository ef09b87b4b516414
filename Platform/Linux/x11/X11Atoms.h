// The names that the X server gives numbers to.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace norra::linux_desktop {

enum class X11Atom : std::size_t {
  gtkApplicationIdentifier,
  gtkFrameExtents,
  kdeDesktopFile,
  netActiveWindow,
  netClientListStacking,
  netSupportingWindowManagerCheck,
  netWindowManagerName,
  netWindowManagerProcess,
  utf8String,
  windowManagerClass,
  windowManagerClientMachine,
  windowManagerName,
  windowManagerState,
};

/// In the order of X11Atom.
inline constexpr std::array<std::string_view, 13> x11AtomNames{
    "_GTK_APPLICATION_ID",
    "_GTK_FRAME_EXTENTS",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "UTF8_STRING",
    "WM_CLASS",
    "WM_CLIENT_MACHINE",
    "WM_NAME",
    "WM_STATE",
};
static_assert(x11AtomNames.size() == static_cast<std::size_t>(X11Atom::windowManagerState) + 1);

}  // namespace norra::linux_desktop
