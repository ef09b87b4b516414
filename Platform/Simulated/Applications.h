// The applications of the simulated desktop and which of them is in front. Being in front and being announced as such
// are two things here, since a desktop may do one without the other.
#pragma once

#include "Platform/Simulated/DesktopDescription.h"
#include "Platform/Simulated/Registry.h"
#include "Platform/Workspace.h"

namespace norra::simulated {

class Applications final : public Workspace {
 public:
  explicit Applications(const DesktopDescription& description);

  std::optional<NSRunningApplication> frontmostApplication() const override;
  std::optional<NSRunningApplication> runningApplication(ProcessIdentifier process) const override;
  [[nodiscard]] std::unique_ptr<Registration> onActivation(ActivationHandler handler) override;

  void add(const ApplicationDescription& application);
  /// The process must be that of an application, here and below.
  void setFrontmost(std::optional<ProcessIdentifier> process) { frontmost_ = process; }
  /// Tells everyone who asked; nothing: of an activation that names no application. Also tells of an application that
  /// has ended.
  void announceActivation(std::optional<ProcessIdentifier> process) const;
  void terminate(ProcessIdentifier process);

 private:
  class Subscription;
  struct Entry {
    NSRunningApplication application;
    bool isRunning = true;
  };

  std::map<ProcessIdentifier, Entry> entries_;
  std::optional<ProcessIdentifier> frontmost_;
  Registry<Subscription> subscriptions_;
};

}  // namespace norra::simulated
