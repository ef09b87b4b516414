#include "Platform/Linux/accessibility/AtspiAccessibility.h"

#include <utility>

#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

constexpr auto inputThatChangesValues =
    maskOf(CGEventType::keyDown) | maskOf(CGEventType::leftMouseUp) | maskOf(CGEventType::otherMouseUp);

// Where not all input is seen there may have been some at any time.
constexpr std::uint64_t pauseBetweenLooksMicroseconds = 500'000;

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

class RepeatedLook final : public Registration {
 public:
  RepeatedLook(sd_event* event, std::function<void()> look)
      : look_(std::move(look)), next_(event, [this] { lookAgain(); }) {
    next_.requestAfter(pauseBetweenLooksMicroseconds);
  }

 private:
  void lookAgain() {
    next_.requestAfter(pauseBetweenLooksMicroseconds);
    look_();
  }

  const std::function<void()> look_;
  DeferredRun next_;
};

}  // namespace

AtspiAccessibility::AtspiAccessibility(sd_event* event, WindowsOnScreen& windows, EventTaps& eventTaps,
                                       Rehearsals rehearsals)
    : switch_(event),
      eventTaps_(eventTaps),
      epoch_(event),
      windows_(windows),
      session_(epoch_, toolkitNamed),
      focus_(session_),
      pointed_(session_, focus_, windows),
      handles_(session_, focus_, pointed_, windows),
      pressPictures_(session_, pointed_, handles_, std::move(rehearsals.click)),
      events_(event, session_.shared, [this](const std::string& name) { session_.forget(name); }),
      activeTopLevels_(session_, events_),
      focusEvents_(focus_, events_),
      focusPicture_(session_, handles_, events_, std::move(rehearsals.key)),
      services_{
          session_, focus_, handles_, events_, focusEvents_, focusPicture_, [this](std::function<void()> noteInput) {
            return watchInput(std::move(noteInput));
          }} {}

AXResult<std::unique_ptr<AXObserver>> AtspiAccessibility::createObserver(ProcessIdentifier process,
                                                                         AXObserverCallback callback) {
  return {axError::success, std::make_unique<AtspiObserver>(services_, process, std::move(callback))};
}

std::unique_ptr<Registration> AtspiAccessibility::watchInput(std::function<void()> noteInput) {
  if (!windows_.isAllInputSeen()) return std::make_unique<RepeatedLook>(events_.loop(), std::move(noteInput));
  return std::make_unique<InputWatch>(eventTaps_.createEventTap(
      inputThatChangesValues, [noteInput = std::move(noteInput)](const CGEvent&) { noteInput(); }));
}

// The window first: it may be a menu that closes before the picture is taken.
void AtspiAccessibility::notePress(std::optional<CGPoint> place) {
  windows_.notePress(place);
  pressPictures_.notePress(place);
}

void AtspiAccessibility::noteRelease() {
  pressPictures_.noteRelease();
  focusPicture_.noteInput();
}

void AtspiAccessibility::describe(ServiceStatistics& statistics) {
  auto& [bus, resting, counts] = session_.shared;
  statistics.reads = counts.reads;
  statistics.waves = counts.waves;
  statistics.timeOuts = counts.timeOuts;
  statistics.readsSpared = counts.spared;
  statistics.restingApplications = resting.count(std::chrono::steady_clock::now());
  statistics.accessibility = bus.problem();
}

bool AtspiAccessibility::isSecretFocused() {
  const auto window = windows_.windowOfInput();
  return window && focus_.isSecret(window->process);
}

}  // namespace norra::linux_desktop
