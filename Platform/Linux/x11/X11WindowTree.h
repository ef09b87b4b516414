// Finds the windows that matter in the X server's tree: clients inside their window manager's frames, what is active.
//
// A window manager puts each window of an application into one of its own, at a depth that it chooses. What a person
// calls a window is the outer one in place and size and the inner one in everything else, so both are kept.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra::linux_desktop {

/// A top-level window: the child of the root, and the client's window inside it or itself.
struct X11TopLevel {
  xcb_window_t frame = XCB_NONE;
  xcb_window_t client = XCB_NONE;
};

/// Asks the server anew for every answer; XCB_NONE where there is no such window. One thread at a time.
class X11WindowTree {
 public:
  /// Not owned.
  explicit X11WindowTree(X11Connection& connection) : connection_(connection) {}

  /// Windows that let the pointer through are passed over.
  X11TopLevel topLevelAt(CGPoint point);
  X11TopLevel topLevelAround(xcb_window_t window);

  /// As the window manager says; without one, the client that has the input focus.
  xcb_window_t activeClient();
  /// Whether a window manager is there that tells which window is active.
  bool hasWindowManager();
  /// Topmost first.
  std::vector<xcb_window_t> clients();

 private:
  xcb_window_t childAt(xcb_window_t window, CGPoint point);
  xcb_window_t clientOnTheWayTo(CGPoint point, xcb_window_t frame);
  xcb_window_t clientIn(xcb_window_t frame);
  xcb_window_t firstManaged(const std::vector<xcb_window_t>& windows);
  std::vector<xcb_window_t> childrenOf(const std::vector<xcb_window_t>& windows);
  bool isWindowManager(std::optional<xcb_window_t> checkWindow);

  X11Connection& connection_;
};

}  // namespace norra::linux_desktop
