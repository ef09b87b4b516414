// What the keys of the session's keyboard mean: the layout that the compositor tells every client of, and the modifiers
// that are held, as far as the keys that are pressed tell.
#pragma once

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <optional>

#include "Platform/Linux/display/KeyTranslator.h"
#include "Platform/Linux/wayland/WaylandConnection.h"

namespace norra::linux_desktop {

struct WaylandProxyDestroy {
  void operator()(wl_registry* registry) const noexcept { wl_registry_destroy(registry); }
  void operator()(wl_seat* seat) const noexcept { wl_seat_destroy(seat); }
  void operator()(wl_keyboard* keyboard) const noexcept { wl_keyboard_destroy(keyboard); }
};

/// Main thread. The layout comes later, with the events of the connection.
class WaylandKeyboard {
 public:
  /// The connection must outlive this.
  WaylandKeyboard(WaylandConnection& connection, SecureInput isSecureInput);
  WaylandKeyboard(const WaylandKeyboard&) = delete;
  WaylandKeyboard& operator=(const WaylandKeyboard&) = delete;

  /// A key with this code of the kernel's went down or up.
  void note(std::uint16_t code, bool isPressed);
  /// The locks that are on, now and when a layout is told.
  void setLocks(bool capsLock, bool numLock);
  /// What its press means; nothing: no layout was told.
  std::optional<NSEvent> translate(std::uint16_t code);

  /// The layout as the compositor sends it.
  void useKeymap(std::string_view text);

 private:
  struct Listeners;

  const SecureInput isSecureInput_;
  const KeyContextPtr context_;
  bool capsLock_ = false;
  bool numLock_ = false;
  KeyStatePtr state_;
  std::optional<KeyTranslator> translator_;
  std::unique_ptr<wl_registry, WaylandProxyDestroy> registry_;
  std::unique_ptr<wl_seat, WaylandProxyDestroy> seat_;
  std::unique_ptr<wl_keyboard, WaylandProxyDestroy> keyboard_;
};

}  // namespace norra::linux_desktop
