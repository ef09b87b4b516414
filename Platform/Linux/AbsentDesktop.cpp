#include "Platform/Linux/AbsentDesktop.h"

#include "Platform/Linux/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

/// An element of which nothing can be read. All of one process are equal.
class AbsentElement final : public AXUIElementPrimitives {
 public:
  explicit AbsentElement(ProcessIdentifier process) : process_(process) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view) const override { return {axError::apiDisabled, {}}; }
  AXResult<std::vector<std::string>> copyAttributeNames() const override { return {axError::apiDisabled, {}}; }
  AXResult<std::vector<std::string>> copyActionNames() const override { return {axError::apiDisabled, {}}; }
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float, float) const override {
    return {axError::apiDisabled, {}};
  }
  AXResult<ProcessIdentifier> getPid() const override {
    return {process_ == 0 ? axError::apiDisabled : axError::success, process_};
  }
  AXUIElement createApplication(ProcessIdentifier process) const override {
    return AXUIElement(std::make_shared<AbsentElement>(process));
  }
  std::optional<std::string> roleDescription(std::string_view, std::optional<std::string_view>) const override {
    return std::nullopt;
  }
  bool isEqual(const AXUIElementPrimitives& other) const override {
    const auto* absent = dynamic_cast<const AbsentElement*>(&other);
    return absent != nullptr && absent->process_ == process_;
  }

 private:
  ProcessIdentifier process_;
};

}  // namespace

void MissingFacility::report() const {
  if (!isReported_.exchange(true)) platformLogger().error(problem_);
}

AXUIElement AbsentAccessibility::createSystemWide() { return createApplication(0); }

AXUIElement AbsentAccessibility::createApplication(ProcessIdentifier process) {
  missing_.report();
  return AXUIElement(std::make_shared<AbsentElement>(process));
}

AXResult<std::unique_ptr<AXObserver>> AbsentAccessibility::createObserver(ProcessIdentifier, AXObserverCallback) {
  missing_.report();
  return {axError::apiDisabled, nullptr};
}

std::unique_ptr<EventTap> AbsentEventTaps::createEventTap(CGEventMask, CGEventTapCallback) {
  missing_.report();
  return nullptr;
}

std::optional<NSRunningApplication> AbsentWorkspace::frontmostApplication() const {
  missing_.report();
  return std::nullopt;
}

std::optional<NSRunningApplication> AbsentWorkspace::runningApplication(ProcessIdentifier) const {
  missing_.report();
  return std::nullopt;
}

std::unique_ptr<Registration> AbsentWorkspace::onActivation(ActivationHandler) {
  missing_.report();
  return std::make_unique<Registration>();
}

}  // namespace norra::linux_desktop
