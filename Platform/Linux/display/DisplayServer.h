// What a desktop has from its display server, whichever that is: windows, applications and input. Each kind of server
// has a folder of its own, which gives one function that opens it.
#pragma once

#include <functional>
#include <optional>

#include "Platform/EventTap.h"
#include "Platform/Linux/display/KeyTranslator.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/ClickTimes.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

/// What a display server can tell now.
struct DisplayFacts {
  bool isWayland = false;
  bool hasServer = false;  // one is reached; the following are of it
  bool hasInput = false;
  bool hasWindowManager = false;
  bool hasActiveWindow = false;
};

/// Told of every press of a button that clicks: where the pointer is, if it is known.
using PressHandler = std::function<void(std::optional<CGPoint> place)>;

/// Whom a display server asks and tells beside its event taps; each may be absent. Main thread.
struct InputListeners {
  SecureInput isSecureInput = {};  // as for KeyTranslator
  PressHandler pressed = {};
  std::function<void()> released = {};  // a button that clicks, before the taps are told
  ClickTimes* clickTimes = nullptr;     // not owned; told which click is handled
};

/// Main thread, apart from windows().
class DisplayServer {
 public:
  virtual ~DisplayServer() = default;
  virtual WindowsOnScreen& windows() = 0;
  /// Made at the first call. Null: the server was lost before.
  virtual Workspace* workspace() = 0;
  /// Null: the server does not tell of input.
  virtual EventTaps* eventTaps() = 0;
  virtual DisplayFacts facts() = 0;
};

}  // namespace norra::linux_desktop
