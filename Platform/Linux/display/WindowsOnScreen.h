// What the accessibility side asks the window side: which top-level window lies under a point, and which one is active.
//
// Applications know their elements and mostly not what lies above them. The display server knows windows, their order
// and their processes, and nothing in them. A click is found with both: the window by the server, the element by the
// window's application.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

/// A rectangle in pixels of the screen.
struct ScreenRectangle {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  bool operator==(const ScreenRectangle&) const = default;
};

/// The invisible border (shadow) that a client draws around its own window, in pixels, as _GTK_FRAME_EXTENTS says.
struct ShadowExtents {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
  bool operator==(const ShadowExtents&) const = default;
};

/// One top-level window as it stood when it was looked up.
struct WindowOnScreen {
  std::uint32_t window = 0;
  /// 0 where the window does not tell.
  ProcessIdentifier process = 0;
  /// With what the window manager drew around it.
  ScreenRectangle frame;
  /// The client's own window; its shadow, if it has one, is part of it.
  ScreenRectangle client;
  ShadowExtents shadow;
  std::string title;
  /// Whether the window manager does not care for it: menus, lists of combo boxes, tool tips.
  bool overrideRedirect = false;
  /// Its application does not know where it is on the screen: the places here are in the window, which begins with its
  /// shadow.
  bool isOfWayland = false;
};

/// Any thread; every answer comes within a bound. Nothing: there is none, or no way to know.
class WindowsOnScreen {
 public:
  virtual ~WindowsOnScreen() = default;
  virtual std::optional<WindowOnScreen> topLevelWindowAt(CGPoint point) = 0;
  /// A press may open a menu or a list under the pointer, and a release may close what was pressed. Until the next
  /// press, what is found under the pressed place is what lay there then. Nothing: it is not known where the pointer
  /// is.
  virtual void notePress(std::optional<CGPoint> /*place*/) {}
  /// A point of the screen as the application knows it that has the window there.
  virtual CGPoint inApplication(CGPoint point) { return point; }
  virtual std::optional<WindowOnScreen> activeWindow() = 0;
  /// The window that the last input went to: the one that was active then, even if it has been closed by it.
  virtual std::optional<WindowOnScreen> windowOfInput() { return activeWindow(); }
  /// Whether event taps are told of what is done in all windows.
  virtual bool isAllInputSeen() const { return true; }
};

/// Stands for them where there is no X server.
class NoWindowsOnScreen final : public WindowsOnScreen {
 public:
  std::optional<WindowOnScreen> topLevelWindowAt(CGPoint /*point*/) override { return std::nullopt; }
  std::optional<WindowOnScreen> activeWindow() override { return std::nullopt; }
};

/// What one window tells of its application; what it does not tell is empty.
struct ApplicationWindow {
  std::uint32_t window = 0;
  /// 0 where neither the display server nor the window knows a process of this machine.
  ProcessIdentifier process = 0;
  /// The instance's and the class's name, as WM_CLASS has them.
  std::string instanceName;
  std::string className;
  /// The names that GTK and KDE give their windows.
  std::string gtkApplicationIdentifier;
  std::string kdeDesktopFile;
};

/// The window that a person works in.
struct FrontWindow {
  ApplicationWindow application;
  std::string title;
};

/// Any thread; every answer comes within a bound.
class ApplicationWindows {
 public:
  virtual ~ApplicationWindows() = default;
  /// Nothing: there is none, or no way to know.
  virtual std::optional<FrontWindow> front() = 0;
  /// Of the process's active window, else of its topmost one. Nothing: it has no window.
  virtual std::optional<ApplicationWindow> applicationOf(ProcessIdentifier process) = 0;
};

// A press of a button that clicks, as far as it matters for what lies under the pointer.

/// Asks an element all that will be asked of it when it was clicked. Whether the click would be told.
using ClickRehearsal = std::function<bool(const AXUIElement& element)>;
/// Asks an element all that will be asked of it when a key is pressed in it. Whether it says what it is.
using KeyRehearsal = std::function<bool(const AXUIElement& element)>;

/// Each may be empty: nothing is known ahead.
struct Rehearsals {
  ClickRehearsal click = {};
  KeyRehearsal key = {};
};

/// Whether the pointer moved no further than it does while a button is clicked.
inline bool isSamePlace(CGPoint press, CGPoint release) {
  constexpr double steadyHandPixels = 4;
  return std::abs(press.x - release.x) <= steadyHandPixels && std::abs(press.y - release.y) <= steadyHandPixels;
}

}  // namespace norra::linux_desktop
