// The applications of the desktop and which of them is in front.
//
// An application is a process here. It is in front when the window that the person works in is one of its windows,
// whatever else the desktop shows. What the core reports of an application is read when it comes to the front.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Accessibility.h"
#include "Platform/Registration.h"

namespace norra {

/// What was known of an application when it was looked up.
struct NSRunningApplication {
  ProcessIdentifier processIdentifier = 0;
  std::optional<std::string> bundleIdentifier;
  std::optional<NSURL> executableURL;
  std::optional<std::string> localizedName;
};

/// Receives the activated application; nothing where the notification names none. Main thread.
using ActivationHandler = std::function<void(const std::optional<NSRunningApplication>& application)>;

class Workspace {
 public:
  virtual ~Workspace() = default;

  /// Nothing: none is in front. Any thread.
  virtual std::optional<NSRunningApplication> frontmostApplication() const = 0;
  /// Nothing: no such application. Any thread.
  virtual std::optional<NSRunningApplication> runningApplication(ProcessIdentifier process) const = 0;
  /// Calls the handler for every activation until the registration is let go. Main thread.
  [[nodiscard]] virtual std::unique_ptr<Registration> onActivation(ActivationHandler handler) = 0;
};

}  // namespace norra
