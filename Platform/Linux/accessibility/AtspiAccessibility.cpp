#include "Platform/Linux/accessibility/AtspiAccessibility.h"

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr CGEventMask maskOf(CGEventType type) { return CGEventMask{1} << static_cast<unsigned>(type); }
constexpr auto inputThatChangesValues =
    maskOf(CGEventType::keyDown) | maskOf(CGEventType::leftMouseUp) | maskOf(CGEventType::otherMouseUp);

class InputWatch final : public Registration {
 public:
  explicit InputWatch(std::unique_ptr<EventTap> tap) : tap_(std::move(tap)) {
    if (!tap_) return;
    tap_->addSourceToMainRunLoop();
    tap_->enable();
  }
  ~InputWatch() override {
    if (tap_) tap_->removeSourceFromMainRunLoop();
  }

 private:
  const std::unique_ptr<EventTap> tap_;
};

}  // namespace

AtspiAccessibility::AtspiAccessibility(sd_event* event, WindowsOnScreen& windows, EventTaps& eventTaps)
    : switch_(event),
      eventTaps_(eventTaps),
      epoch_(event),
      context_(epoch_, windows),
      events_(event, context_.shared, [this](const std::string& name) { context_.forget(name); }),
      focusEvents_(context_, events_),
      services_{context_, events_, focusEvents_,
                [this](std::function<void()> noteInput) { return watchInput(std::move(noteInput)); }} {}

AXResult<std::unique_ptr<AXObserver>> AtspiAccessibility::createObserver(ProcessIdentifier process,
                                                                         AXObserverCallback callback) {
  return {axError::success, std::make_unique<AtspiObserver>(services_, process, std::move(callback))};
}

std::unique_ptr<Registration> AtspiAccessibility::watchInput(std::function<void()> noteInput) {
  return std::make_unique<InputWatch>(eventTaps_.createEventTap(
      inputThatChangesValues, [noteInput = std::move(noteInput)](const CGEvent&) { noteInput(); }));
}

void AtspiAccessibility::describe(ServiceStatistics& statistics) {
  auto& [bus, resting, counts] = context_.shared;
  statistics.reads = counts.reads;
  statistics.waves = counts.waves;
  statistics.timeOuts = counts.timeOuts;
  statistics.readsSpared = counts.spared;
  statistics.restingApplications = resting.count(std::chrono::steady_clock::now());
  statistics.accessibility = bus.problem();
}

bool AtspiAccessibility::isSecretFocused() {
  const auto window = context_.windows.activeWindow();
  if (!window) return false;
  for (const auto& name : context_.processes.busNamesOf(window->process, context_.reader())) {
    const auto focused = context_.focus.followed(name);
    const auto application = context_.applications.find(name);
    if (focused && application && application->wasPassword(focused->path)) return true;
  }
  return false;
}

}  // namespace norra::linux_desktop
