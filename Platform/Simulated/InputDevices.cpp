#include "Platform/Simulated/InputDevices.h"

namespace norra::simulated {

class InputDevices::Tap final : public EventTap {
 public:
  Tap(InputDevices& devices, CGEventMask eventsOfInterest, CGEventTapCallback callback)
      : devices_(devices), eventsOfInterest_(eventsOfInterest), callback_(std::move(callback)) {
    devices_.taps_.add(this);
  }
  ~Tap() override { devices_.taps_.remove(this); }

  void addSourceToMainRunLoop() override { isOnRunLoop_ = true; }
  void removeSourceFromMainRunLoop() override { isOnRunLoop_ = false; }
  void enable() override { isEnabled_ = true; }

  void offer(const CGEvent& event) const {
    const auto bit = CGEventMask{1} << static_cast<std::uint32_t>(event.type);
    if (isEnabled_ && (eventsOfInterest_ & bit) != 0) deliver(event);
  }

  void disable(CGEventType saying) {
    isEnabled_ = false;
    deliver({.type = saying, .location = {}, .keyEvent = std::nullopt});
  }

 private:
  void deliver(const CGEvent& event) const {
    if (!isOnRunLoop_) return;
    const auto callback = callback_;  // the call may be this tap's end
    callback(event);
  }

  InputDevices& devices_;
  CGEventMask eventsOfInterest_;
  CGEventTapCallback callback_;
  bool isOnRunLoop_ = false;
  bool isEnabled_ = false;
};

std::unique_ptr<EventTap> InputDevices::createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) {
  if (!canObserveInput_) return nullptr;
  return std::make_unique<Tap>(*this, eventsOfInterest, std::move(callback));
}

void InputDevices::send(const CGEvent& event) const {
  taps_.tellAll([&](const Tap& tap) { tap.offer(event); });
}

void InputDevices::disableTaps(CGEventType saying) const {
  taps_.tellAll([&](Tap& tap) { tap.disable(saying); });
}

}  // namespace norra::simulated
