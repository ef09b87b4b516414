#include "Platform/Linux/wayland/WaylandKeyboard.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <string_view>
#include <utility>

namespace norra::linux_desktop {
namespace {

// Key codes of X, and with them of layouts, begin later than those of the kernel.
constexpr xkb_keycode_t firstKeycode = 8;
constexpr std::uint32_t maxBytes = 4 << 20;

xkb_mod_mask_t maskOf(xkb_keymap* keymap, const char* modifier) {
  const auto index = xkb_keymap_mod_get_index(keymap, modifier);
  return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

}  // namespace

struct WaylandKeyboard::Listeners {
  static WaylandKeyboard& of(void* self) { return *static_cast<WaylandKeyboard*>(self); }

  static void global(void* self, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
    if (std::string_view(interface) != wl_seat_interface.name || of(self).seat_) return;
    of(self).seat_.reset(static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1)));
    wl_seat_add_listener(of(self).seat_.get(), &seat, self);
  }
  static void globalRemove(void*, wl_registry*, std::uint32_t) {}
  static void capabilities(void* self, wl_seat* theSeat, std::uint32_t capabilities) {
    if ((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) == 0) return of(self).keyboard_.reset();
    if (of(self).keyboard_) return;
    of(self).keyboard_.reset(wl_seat_get_keyboard(theSeat));
    wl_keyboard_add_listener(of(self).keyboard_.get(), &keyboard, self);
  }
  static void seatName(void*, wl_seat*, const char*) {}
  static void keymap(void* self, wl_keyboard*, std::uint32_t format, std::int32_t descriptor, std::uint32_t size) {
    const bool isText = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0 && size <= maxBytes;
    void* const text = isText ? mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0) : MAP_FAILED;
    close(descriptor);
    if (text == MAP_FAILED) return;
    const auto* const begin = static_cast<const char*>(text);
    of(self).useKeymap({begin, strnlen(begin, size)});
    munmap(text, size);
  }
  static void enter(void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {}
  static void leave(void*, wl_keyboard*, std::uint32_t, wl_surface*) {}
  static void key(void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {}
  static void modifiers(void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                        std::uint32_t) {}
  static void repeatInfo(void*, wl_keyboard*, std::int32_t, std::int32_t) {}

  static constexpr wl_registry_listener registry{global, globalRemove};
  static constexpr wl_seat_listener seat{capabilities, seatName};
  static constexpr wl_keyboard_listener keyboard{keymap, enter, leave, key, modifiers, repeatInfo};
};

WaylandKeyboard::WaylandKeyboard(WaylandConnection& connection, SecureInput isSecureInput)
    : isSecureInput_(std::move(isSecureInput)),
      context_(xkb_context_new(
          static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES))),
      registry_(wl_display_get_registry(connection.get())) {
  wl_registry_add_listener(registry_.get(), &Listeners::registry, this);
  wl_display_flush(connection.get());
}

void WaylandKeyboard::useKeymap(std::string_view text) {
  KeymapPtr keymap(xkb_keymap_new_from_buffer(context_.get(), text.data(), text.size(), XKB_KEYMAP_FORMAT_TEXT_V1,
                                              XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!keymap) return;
  state_.reset(xkb_state_new(keymap.get()));
  translator_.emplace(std::move(keymap), isSecureInput_);
  setLocks(capsLock_, numLock_);
}

void WaylandKeyboard::setLocks(bool capsLock, bool numLock) {
  capsLock_ = capsLock;
  numLock_ = numLock;
  if (!state_) return;
  auto* const keymap = xkb_state_get_keymap(state_.get());
  const auto locked =
      (capsLock ? maskOf(keymap, XKB_MOD_NAME_CAPS) : 0) | (numLock ? maskOf(keymap, XKB_MOD_NAME_NUM) : 0);
  xkb_state_update_mask(state_.get(), 0, 0, locked, 0, 0, 0);
}

void WaylandKeyboard::note(std::uint16_t code, bool isPressed) {
  if (state_) xkb_state_update_key(state_.get(), firstKeycode + code, isPressed ? XKB_KEY_DOWN : XKB_KEY_UP);
}

std::optional<NSEvent> WaylandKeyboard::translate(std::uint16_t code) {
  if (!translator_) return std::nullopt;
  auto* const state = state_.get();
  translator_->update({xkb_state_serialize_mods(state, XKB_STATE_MODS_DEPRESSED),
                       xkb_state_serialize_mods(state, XKB_STATE_MODS_LATCHED),
                       xkb_state_serialize_mods(state, XKB_STATE_MODS_LOCKED),
                       xkb_state_serialize_layout(state, XKB_STATE_LAYOUT_DEPRESSED),
                       xkb_state_serialize_layout(state, XKB_STATE_LAYOUT_LATCHED),
                       xkb_state_serialize_layout(state, XKB_STATE_LAYOUT_LOCKED)});
  return translator_->translate(firstKeycode + code);
}

}  // namespace norra::linux_desktop
