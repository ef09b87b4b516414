// Input as the X server tells it to whoever asks (raw events of XInput2): nothing is grabbed, held up or changed, and
// open menus hide nothing.
//
// Raw events say which button or key, and not where and not what for. The place of a release comes from a record of the
// devices (X11ClickPlaces.h), since the pointer has moved on by the time that the event is read; what a key means comes
// from the keyboard's layout and the modifiers that are held (X11Keyboard.h). Presses of buttons are told beside the
// taps, for whoever must know what was pressed before the application acts on it.
#pragma once

#include <systemd/sd-event.h>

#include <bitset>
#include <functional>
#include <vector>

#include "Platform/Linux/display/DisplayServer.h"
#include "Platform/Linux/display/TapBook.h"
#include "Platform/Linux/x11/X11ClickPlaces.h"
#include "Platform/Linux/x11/X11EventSource.h"
#include "Platform/Linux/x11/X11Keyboard.h"

namespace norra::linux_desktop {

/// Main thread. The server is asked for no event that no tap wants now. A click is where the pointer was
/// when the server saw it, or else is when its event is read; key presses carry no location. Taps are never disabled.
class X11EventTaps final : public EventTaps {
 public:
  /// Null: the server has no XInput 2.2. `event` is not owned; the connection must have no other user of its events.
  /// `activeWindowChanged` is called at the beginning and whenever the window manager tells of another active window:
  /// after the input before that, and before the input after it.
  static std::unique_ptr<X11EventTaps> open(
      sd_event* event, std::unique_ptr<X11Connection> connection, InputListeners listeners = {},
      std::function<void()> activeWindowChanged = [] {});

  std::unique_ptr<EventTap> createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) override;

 private:
  X11EventTaps(sd_event* event, std::unique_ptr<X11Connection> connection, InputListeners listeners,
               std::function<void()> activeWindowChanged);
  void didChangeTaps();
  void selectEvents(std::uint32_t events);
  void followClicks(bool isWanted);
  void followKeyboard(bool isWanted);
  void followActiveWindow(bool isWanted);

  void handle(const xcb_generic_event_t& event);
  void handleProperty(const xcb_property_notify_event_t& notice);
  void handleInput(const xcb_generic_event_t& event);
  void handleButtonPress(std::uint32_t button);
  void handleButtonRelease(std::uint32_t button, xcb_timestamp_t time);
  std::optional<CGPoint> placeAt(xcb_timestamp_t time);
  std::optional<CGPoint> placeOfPointer();
  void handleKeyPress(std::uint32_t key, bool isMarkedRepeat);
  std::uint32_t logicalButton(std::uint32_t button);

  const std::unique_ptr<X11Connection> connection_;
  const InputListeners listeners_;
  const std::function<void()> activeWindowChanged_;
  const std::uint8_t inputExtension_;
  TapBook taps_{[this] { didChangeTaps(); }};
  std::uint32_t selectedEvents_ = 0;
  std::uint32_t selectedOfRoot_ = 0;
  std::unique_ptr<X11ClickPlaces> clickPlaces_;
  std::unique_ptr<X11Keyboard> keyboard_;
  std::bitset<256> heldKeys_;
  std::vector<std::uint8_t> buttonMapping_;
  X11EventSource source_;
};

}  // namespace norra::linux_desktop
