// Who is told when another application comes to the front, and when.
//
// A window that is in front for the first time may have no title yet, or one that says that it is loading, or merely
// what application it is of. Its activation is told when its title has stood for a moment, a longer one if it is the
// first window of its application, at the latest after two seconds, or when another window comes to the front. Whoever
// acts in it until then tells of it by that.
#pragma once

#include <systemd/sd-event.h>

#include <map>
#include <memory>
#include <set>
#include <utility>

#include "Platform/Linux/applications/RunningApplications.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

/// Main thread, apart from frontmost() and application().
class Activations {
 public:
  /// Not owned.
  Activations(sd_event* event, ApplicationWindows& windows);

  std::optional<NSRunningApplication> frontmost();
  std::optional<NSRunningApplication> application(ProcessIdentifier process);
  std::unique_ptr<Registration> onActivation(ActivationHandler handler);

  /// What is in front now was so before anybody asked.
  void begin();
  /// Another window may be in front: looks, and tells if it is so.
  void frontMayHaveChanged();
  /// Windows came or went.
  void windowsDidChange() { applications_.windowsDidChange(); }

 private:
  using Handlers = std::map<std::uint64_t, ActivationHandler>;
  class Handle;
  // A window's number is given to another window when the process that had it has gone.
  using Identity = std::pair<std::uint32_t, ProcessIdentifier>;
  static constexpr int maxTitleChecks = 8;
  // A window whose activation was not told yet.
  struct Held {
    FrontWindow window;
    int checksToStand = 1;
    int checksLeft = maxTitleChecks;
    int stoodFor = 0;  // checks
  };

  bool isKnown(const Identity& window);
  bool isFirstOfItsProcess(const Identity& window) const;
  void checkTitle();
  void tellHeld();
  void tell(const std::optional<NSRunningApplication>& application);

  ApplicationWindows& windows_;
  DesktopFiles desktopFiles_{DesktopFiles::foldersOfEnvironment()};
  RunningApplications applications_{windows_, desktopFiles_};
  Identity front_;
  std::set<Identity> known_;
  std::optional<Held> held_;
  DeferredRun titleCheck_;
  std::uint64_t nextHandler_ = 0;
  const std::shared_ptr<Handlers> handlers_ = std::make_shared<Handlers>();
};

}  // namespace norra::linux_desktop
