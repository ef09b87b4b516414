// What stands for a part of the desktop that is not there: it has nothing to give, and says once, at the first use,
// what is missing and what to do.
#pragma once

#include <atomic>
#include <string>

#include "Platform/EventTap.h"
#include "Platform/Workspace.h"

namespace norra::linux_desktop {

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
