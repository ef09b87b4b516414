// What windows tell of themselves, asked for many of them at once.
#pragma once

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/x11/X11Connection.h"
#include "Platform/Linux/x11/X11WindowTree.h"

namespace norra::linux_desktop {

/// What a window tells of the application that it belongs to.
struct X11ApplicationTraits {
  xcb_window_t window = XCB_NONE;
  /// 0 where neither the X server nor the window knows a process of this machine.
  ProcessIdentifier process = 0;
  /// Both parts of WM_CLASS.
  std::string instanceName;
  std::string className;
  /// The names that GTK and KDE give their windows; empty where there is none.
  std::string gtkApplicationIdentifier;
  std::string kdeDesktopFile;
};

/// One thread at a time.
class X11WindowFacts {
 public:
  /// Not owned.
  explicit X11WindowFacts(X11Connection& connection);

  /// One for each window, in the same order; a window that has gone has no process and no names.
  std::vector<X11ApplicationTraits> traitsOf(const std::vector<xcb_window_t>& windows);

  /// Nothing: the window has gone.
  std::optional<WindowOnScreen> describe(X11TopLevel topLevel);

 private:
  struct ProcessRequest;
  ProcessRequest askProcess(xcb_window_t window);
  ProcessIdentifier awaitProcess(const ProcessRequest& request);

  X11Connection& connection_;
  bool serverKnowsProcesses_ = false;
};

}  // namespace norra::linux_desktop
