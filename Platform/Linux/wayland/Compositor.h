// What a Wayland compositor tells of its windows to a program that is not its own, in whatever way this compositor
// does. Wayland itself tells a client of nobody's windows but its own.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/wayland/InputDevices.h"
#include "Platform/Registration.h"

namespace norra::linux_desktop {

struct CompositorWindow {
  /// With its places where the compositor tells of the pointer.
  WindowOnScreen onScreen;
  /// The name of its desktop file, if the application follows the rules.
  std::string applicationIdentifier;
  /// Of the X server beside.
  bool isOfX11 = false;
};

struct PointedWindow {
  CGPoint pointer;
  /// Nothing: the background.
  std::optional<CompositorWindow> window;
};

/// What was done with a button of the pointer, and where, if that is known.
using ButtonHandler = std::function<void(const InputKey& button, const std::optional<PointedWindow>& pointed)>;

/// Every answer comes within a bound; any thread.
class Compositor {
 public:
  virtual ~Compositor() = default;
  /// Whether it answers now: then nothing means that there is none.
  virtual bool isTelling() = 0;
  /// Nothing: none is active, or the compositor does not answer.
  virtual std::optional<CompositorWindow> activeWindow() = 0;
  /// Calls `then` when the compositor has told of all moves of the pointer until now, or soon all the same. One at a
  /// time; main thread.
  virtual void whenPointerIsTold(std::function<void()> then) { then(); }
  /// Any window of the process, the active one rather than another.
  virtual std::optional<CompositorWindow> windowOf(ProcessIdentifier process) = 0;
  /// Whether it says where the pointer is, while it is followed.
  virtual bool tellsPointer() const { return false; }
  /// Whether it tells of the pointer's buttons, while it is followed.
  virtual bool tellsButtons() const { return false; }
  /// Whether it may come to do so.
  virtual bool mayTellButtons() const { return false; }
  /// Calls `handler`, until the result is let go, whenever a button goes down or up; pointed() says the same then. One
  /// at a time; main thread. Null: it never tells.
  [[nodiscard]] virtual std::unique_ptr<Registration> followButtons(ButtonHandler /*handler*/) { return nullptr; }
  /// Where the pointer is, and the window there; nothing: it is not told.
  virtual std::optional<PointedWindow> pointed() { return std::nullopt; }
  /// Calls `changed`, until the result is let go, when another window may be active. One at a time; main thread.
  [[nodiscard]] virtual std::unique_ptr<Registration> follow(std::function<void()> changed) = 0;
};

}  // namespace norra::linux_desktop
