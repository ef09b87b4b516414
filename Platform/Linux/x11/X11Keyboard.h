// The keyboard of an X server: its layout and state, followed as they change. A key event tells a code only; what it
// means depends on the layout that is switched on and on the modifiers that are held at that moment, so both are
// followed from the server's own notices and never guessed from the keys that were seen.
#pragma once

#include "Platform/Linux/display/KeyTranslator.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra::linux_desktop {

/// Follows the keyboard while it exists. One thread at a time.
class X11Keyboard {
 public:
  /// The connection is not owned; its events have to be given to handle(). Null: the server tells no layout.
  static std::unique_ptr<X11Keyboard> open(X11Connection& connection, SecureInput isSecureInput);
  ~X11Keyboard();
  X11Keyboard(const X11Keyboard&) = delete;
  X11Keyboard& operator=(const X11Keyboard&) = delete;

  /// Any event of the connection; those that are not about the keyboard are passed over.
  void handle(const xcb_generic_event_t& event);

  /// Asks the server nothing, unless the layout has changed since.
  NSEvent translate(xcb_keycode_t key);

 private:
  X11Keyboard(X11Connection& connection, SecureInput isSecureInput, std::uint8_t firstEvent);
  void selectEvents(std::uint16_t events);
  void loadState();
  void loadLayout();
  void didChangeState(const KeyboardState& state);

  X11Connection& connection_;
  const SecureInput isSecureInput_;
  const std::uint8_t firstEvent_;
  const std::int32_t device_;
  const KeyContextPtr context_;
  std::unique_ptr<KeyTranslator> translator_;
  KeyboardState state_;
  bool isLayoutOutdated_ = false;
};

}  // namespace norra::linux_desktop
