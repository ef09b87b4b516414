// What a desktop has from its display server, whichever that is: windows, applications and input. Each kind of server
// has a folder of its own, which gives one function that opens it.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"
#include "Platform/EventTap.h"
#include "Platform/Linux/display/KeyTranslator.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/ClickTimes.h"
#include "Platform/Registration.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

/// What the accessibility bus says of the window that a person works in, for display servers that do not say it all.
struct ActiveTopLevel {
  /// Tells windows apart.
  std::uint32_t identity = 0;
  ProcessIdentifier process = 0;
  std::string title;
};

class ActiveTopLevels {
 public:
  virtual ~ActiveTopLevels() = default;
  /// The one that its application calls active, and called so when it was asked. Nothing: none does. Any thread; comes
  /// within a bound.
  virtual std::optional<ActiveTopLevel> active() = 0;
  /// Calls `changed`, until the result is let go, when another one may be active. One at a time; main thread.
  [[nodiscard]] virtual std::unique_ptr<Registration> follow(std::function<void()> changed) = 0;
};

/// What a display server can tell now.
struct DisplayFacts {
  bool isWayland = false;
  bool hasServer = false;  // one is reached; the following are of it
  bool hasXServer = false;
  bool hasInput = false;        // of the windows of the X server
  bool hasDevices = false;      // input of the other windows too
  bool hasPointer = false;      // and where the pointer is in them
  bool hasButtons = false;      // which the compositor tells of, at the pointer, without devices
  bool mayHaveButtons = false;  // if the user enables that
  bool hasWindowManager = false;
  bool hasActiveWindow = false;
};

/// Told of every press of a button that clicks: where the pointer is, if it is known.
using PressHandler = std::function<void(std::optional<CGPoint> place)>;

/// Whom a display server asks and tells beside its event taps; each may be absent. Main thread.
struct InputListeners {
  SecureInput isSecureInput = {};  // as for KeyTranslator
  PressHandler pressed = {};
  std::function<void()> released = {};         // a button that clicks, before the taps are told
  std::function<void()> windowActivated = {};  // another window is active
  ClickTimes* clickTimes = nullptr;            // not owned; told which click is handled
};

/// Main thread, apart from windows() and applications().
class DisplayServer {
 public:
  virtual ~DisplayServer() = default;
  /// Before anything else, for servers that do not say which window is active. It must outlive all who listen to the
  /// workspace.
  virtual void use(ActiveTopLevels& /*topLevels*/) {}
  virtual WindowsOnScreen& windows() = 0;
  virtual ApplicationWindows& applications() = 0;
  /// Made at the first call. Null: the server was lost before.
  virtual Workspace* workspace() = 0;
  /// Null: the server does not tell of input.
  virtual EventTaps* eventTaps() = 0;
  virtual DisplayFacts facts() = 0;
};

// What stands for a part of the desktop that is not there: it has nothing to give, and says once, at the first use,
// what is missing and what to do.

/// Logs its text as an error when it is told to for the first time. Any thread.
class MissingFacility {
 public:
  explicit MissingFacility(std::string problem) : problem_(std::move(problem)) {}
  void report() const;

 private:
  std::string problem_;
  mutable std::atomic<bool> isReported_ = false;
};

class AbsentEventTaps final : public EventTaps {
 public:
  explicit AbsentEventTaps(std::string problem) : missing_(std::move(problem)) {}
  std::unique_ptr<EventTap> createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) override;

 private:
  MissingFacility missing_;
};

class AbsentWorkspace final : public Workspace {
 public:
  explicit AbsentWorkspace(std::string problem) : missing_(std::move(problem)) {}
  std::optional<NSRunningApplication> frontmostApplication() const override;
  std::optional<NSRunningApplication> runningApplication(ProcessIdentifier process) const override;
  std::unique_ptr<Registration> onActivation(ActivationHandler handler) override;

 private:
  MissingFacility missing_;
};

}  // namespace norra::linux_desktop
