// What windows tell of themselves, asked for many of them at once: an answer costs a round trip, and forty of them that
// were asked for together cost hardly more than one.
#pragma once

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/x11/X11Connection.h"
#include "Platform/Linux/x11/X11WindowTree.h"

namespace norra::linux_desktop {

/// One thread at a time.
class X11WindowFacts {
 public:
  /// Not owned.
  explicit X11WindowFacts(X11Connection& connection);

  /// One for each window, in the same order; a window that has gone has no process and no names.
  std::vector<ApplicationWindow> traitsOf(const std::vector<xcb_window_t>& windows);

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
