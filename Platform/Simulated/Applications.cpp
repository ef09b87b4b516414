#include "Platform/Simulated/Applications.h"

namespace norra::simulated {

class Applications::Subscription final : public Registration {
 public:
  Subscription(Applications& applications, ActivationHandler handler)
      : applications_(applications), handler_(std::move(handler)) {
    applications_.subscriptions_.add(this);
  }
  ~Subscription() override { applications_.subscriptions_.remove(this); }

  void tell(const std::optional<NSRunningApplication>& application) const {
    const auto handler = handler_;  // the call may be this subscription's end
    handler(application);
  }

 private:
  Applications& applications_;
  ActivationHandler handler_;
};

Applications::Applications(const DesktopDescription& description) : frontmost_(description.frontmost) {
  for (const auto& application : description.applications) add(application);
}

std::optional<NSRunningApplication> Applications::frontmostApplication() const {
  if (!frontmost_) return std::nullopt;
  return entries_.at(*frontmost_).application;
}

std::optional<NSRunningApplication> Applications::runningApplication(ProcessIdentifier process) const {
  const auto found = entries_.find(process);
  if (found == entries_.end() || !found->second.isRunning) return std::nullopt;
  return found->second.application;
}

std::unique_ptr<Registration> Applications::onActivation(ActivationHandler handler) {
  return std::make_unique<Subscription>(*this, std::move(handler));
}

void Applications::add(const ApplicationDescription& application) {
  std::optional<NSURL> executable;
  if (application.executableURL) executable = NSURL{*application.executableURL};
  entries_[application.process] = {
      {application.process, application.bundleIdentifier, std::move(executable), application.localizedName}};
}

void Applications::announceActivation(std::optional<ProcessIdentifier> process) const {
  std::optional<NSRunningApplication> application;
  if (process) application = entries_.at(*process).application;
  subscriptions_.tellAll([&](const Subscription& subscription) { subscription.tell(application); });
}

void Applications::terminate(ProcessIdentifier process) {
  entries_.at(process).isRunning = false;
  if (frontmost_ == process) frontmost_.reset();
}

}  // namespace norra::simulated
