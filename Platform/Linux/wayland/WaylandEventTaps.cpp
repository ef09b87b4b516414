#include "Platform/Linux/wayland/WaylandEventTaps.h"

#include <linux/input-event-codes.h>
#include <systemd/sd-login.h>
#include <unistd.h>

#include <cstdlib>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

// The compositor tells of the pointer a little later than the device of the button.
constexpr std::uint64_t delayOfPointerMicroseconds = 12'000;
constexpr std::uint64_t delayOfReleaseMicroseconds = 12'000;

bool isButton(std::uint16_t code) { return code >= BTN_MOUSE && code < BTN_JOYSTICK; }
bool isKeyOfKeyboard(std::uint16_t code) { return code < BTN_MISC; }

CGEventType clickTypeOf(std::uint16_t button) {
  switch (button) {
    case BTN_LEFT: return CGEventType::leftMouseUp;
    case BTN_RIGHT: return CGEventType::rightMouseUp;
    default: return CGEventType::otherMouseUp;
  }
}

bool isOfX11(const std::optional<PointedWindow>& pointed) {
  return pointed && pointed->window && pointed->window->isOfX11;
}

// The devices are those of the seat, and somebody else's session may have it now.
bool hasSeat() {
  char* session = nullptr;
  if (sd_uid_get_display(getuid(), &session) < 0) return true;
  const std::unique_ptr<char, decltype(&free)> owned(session, free);
  return sd_session_is_active(session) != 0;
}

/// Hears of what is done in windows of X11 and of what is done in others.
class TapInBoth final : public EventTap {
 public:
  TapInBoth(std::unique_ptr<EventTap> ofX11, std::unique_ptr<EventTap> ofOthers)
      : ofX11_(std::move(ofX11)), ofOthers_(std::move(ofOthers)) {}

  void addSourceToMainRunLoop() override {
    ofX11_->addSourceToMainRunLoop();
    ofOthers_->addSourceToMainRunLoop();
  }
  void removeSourceFromMainRunLoop() override {
    ofX11_->removeSourceFromMainRunLoop();
    ofOthers_->removeSourceFromMainRunLoop();
  }
  void enable() override {
    ofX11_->enable();
    ofOthers_->enable();
  }

 private:
  const std::unique_ptr<EventTap> ofX11_;
  const std::unique_ptr<EventTap> ofOthers_;
};

}  // namespace

std::unique_ptr<EventTap> WaylandEventTaps::createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) {
  auto ofX11 = surroundings_.ofX11 ? surroundings_.ofX11->createEventTap(eventsOfInterest, callback) : nullptr;
  auto ofOthers = taps_.createTap(eventsOfInterest, std::move(callback));
  return ofX11 ? std::make_unique<TapInBoth>(std::move(ofX11), std::move(ofOthers)) : std::move(ofOthers);
}

// Whoever ends the last tap may be handling what a device told.
void WaylandEventTaps::closeIfUnwanted() {
  if (isWanted()) return;
  buttonsOfCompositor_.reset();
  devices_.reset();
  keyboard_.reset();
  buttons_.clear();
  releases_.clear();
}

void WaylandEventTaps::didChangeTaps() {
  if (!isWanted()) return closing_.request();
  if (devices_) return;
  devices_ = std::make_unique<InputDevices>(surroundings_.event, surroundings_.devices,
                                            [this](const auto& key) { handle(key); });
  if (surroundings_.compositor) {
    buttonsOfCompositor_ = surroundings_.compositor->followButtons(
        [this](const auto& key, const auto& pointed) { noteButtonOfCompositor(key, pointed); });
  }
  if (!surroundings_.connection) return;
  keyboard_ = std::make_unique<WaylandKeyboard>(*surroundings_.connection, listeners_.isSecureInput);
  keyboard_->setLocks(devices_->isLightOn(LED_CAPSL), devices_->isLightOn(LED_NUML));
}

void WaylandEventTaps::handle(const InputKey& key) {
  if (isButton(key.code)) return handleButton(key);
  if (keyboard_ && isKeyOfKeyboard(key.code)) handleKey(key);
}

// A compositor that tells of buttons knows where they were pressed.
void WaylandEventTaps::handleButton(const InputKey& key) {
  if (surroundings_.compositor && surroundings_.compositor->tellsButtons()) return;
  buttons_.push_back(key);
  if (buttons_.size() == 1) pointer_.requestAfter(delayOfPointerMicroseconds);
}

void WaylandEventTaps::handleButtons() {
  const auto pointed = surroundings_.windows.pointed();
  for (const auto& key : std::exchange(buttons_, {})) handleButtonAt(key, pointed);
}

// The compositor knows of a release before it tells the window.
void WaylandEventTaps::noteButtonOfCompositor(const InputKey& key, const std::optional<PointedWindow>& pointed) {
  if (key.action == InputKey::Action::released) {
    releases_.emplace_back(key, pointed);
    return release_.requestAfter(delayOfReleaseMicroseconds);
  }
  handleReleases();
  handleButtonAt(key, pointed);
}

void WaylandEventTaps::handleReleases() {
  for (const auto& [key, pointed] : std::exchange(releases_, {})) handleButtonAt(key, pointed);
}

// The X server tells of clicks in its own windows.
void WaylandEventTaps::handleButtonAt(const InputKey& key, const std::optional<PointedWindow>& pointed) {
  if (!devices_ || !hasSeat() || isOfX11(pointed)) return;
  if (key.action == InputKey::Action::released) {
    handleRelease(key.code, pointed);
  } else {
    handlePress(pointed);
  }
}

void WaylandEventTaps::handlePress(const std::optional<PointedWindow>& pointed) {
  surroundings_.windows.setInputOfX11(false);
  if (listeners_.pressed) listeners_.pressed(pointed ? std::optional(pointed->pointer) : std::nullopt);
}

void WaylandEventTaps::handleRelease(std::uint16_t button, const std::optional<PointedWindow>& pointed) {
  std::optional<ClickTimes::Handling> handling;
  if (listeners_.clickTimes) handling.emplace(*listeners_.clickTimes, std::chrono::steady_clock::now());
  if (listeners_.released) listeners_.released();
  if (pointed) return taps_.deliver({clickTypeOf(button), pointed->pointer, std::nullopt});
  clickLogger().debug("A click gives no report: the compositor does not say where the pointer is");
}

// Modifiers are followed wherever they are pressed; what they make of a key is looked up only where it may be told.
void WaylandEventTaps::handleKey(const InputKey& key) {
  const bool isPressed = key.action != InputKey::Action::released;
  if (isPressed && hasSeat() && !surroundings_.windows.isX11InFront()) {
    auto keyEvent = keyboard_->translate(key.code);
    if (keyEvent) keyEvent->isARepeat = key.action == InputKey::Action::repeated;
    if (keyEvent) taps_.deliver({CGEventType::keyDown, {}, std::move(keyEvent)});
  }
  if (key.action != InputKey::Action::repeated) keyboard_->note(key.code, isPressed);
}

}  // namespace norra::linux_desktop
