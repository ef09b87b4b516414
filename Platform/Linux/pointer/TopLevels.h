// Which top-level accessible belongs to which window, once it was found. The display server does not know accessibles,
// nor accessibles their windows, so a match has to be searched for among the windows of the application, with several
// calls each; what was found is kept as long as the window is of the same process and has the same title and size.
#pragma once

#include <map>
#include <mutex>

#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {

/// Any thread.
class KnownTopLevels {
 public:
  /// Null: not known. Pop-ups are never known: menus share their windows.
  AtspiReference find(const WindowOnScreen& window) const;
  /// Whether a known one counts in other pixels than the screen's.
  bool isScaled(const WindowOnScreen& window) const;
  void note(const WindowOnScreen& window, const AtspiReference& topLevel, bool isScaled);
  void forget(const WindowOnScreen& window);
  void clear();

 private:
  struct TopLevel {
    WindowOnScreen window;  // as it was when the top-level was found
    AtspiReference reference;
    bool isScaled = false;
  };
  mutable std::mutex mutex_;
  std::map<std::uint32_t, TopLevel> topLevels_;  // by window; guarded by mutex_
};

}  // namespace norra::linux_desktop
