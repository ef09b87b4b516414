// The top-level windows of the X server, for whoever asks.
#pragma once

#include <mutex>

#include "Platform/Linux/x11/X11WindowFacts.h"

namespace norra::linux_desktop {

/// Asks the server anew for every answer; a window that goes while it is looked at gives nothing. Any thread: one
/// waits for the other, and each for the server no longer than a bound. Who asks for what lies at a place does not wait
/// for who asks for something else.
class X11Windows final : public WindowsOnScreen, public ApplicationWindows {
 public:
  X11Windows(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Connection> forPlaces);

  /// The client's window where a window manager has put it into a frame of its own. Menus and other pop-ups are
  /// found like any other; windows that let the pointer through are not.
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint point) override;
  void notePress(std::optional<CGPoint> place) override;

  /// As the window manager says; without a window manager, the one that has the input focus.
  std::optional<WindowOnScreen> activeWindow() override;

  std::optional<WindowOnScreen> windowOfInput() override;
  /// The window manager told, after the last input, that another window is active. Until this was called,
  /// windowOfInput() is the active window.
  void noteActiveWindow();

  /// Of the active window. Nothing: none is active.
  std::optional<ApplicationWindow> activeApplication();
  std::optional<FrontWindow> front() override;
  std::optional<ApplicationWindow> applicationOf(ProcessIdentifier process) override;

  /// Whether a window manager tells which window is active.
  bool hasWindowManager();

 private:
  std::optional<WindowOnScreen> describeAt(CGPoint point);
  X11TopLevel activeTopLevel();

  struct Press {
    CGPoint place;
    WindowOnScreen window;
  };

  std::mutex placesMutex_;

  // Guarded by placesMutex_.
  const std::unique_ptr<X11Connection> connectionForPlaces_;
  X11WindowTree treeForPlaces_;
  X11WindowFacts factsForPlaces_;
  std::optional<Press> press_;

  std::mutex mutex_;

  // Guarded by mutex_.
  const std::unique_ptr<X11Connection> connection_;
  X11WindowTree tree_;
  X11WindowFacts facts_;
  X11TopLevel topLevelOfInput_;
  std::optional<WindowOnScreen> windowOfInput_;  // as it was when it was looked at last
};

}  // namespace norra::linux_desktop
