#include "Platform/Linux/X11Keyboard.h"

#include <xkbcommon/xkbcommon-x11.h>

// The header names a member with a word that C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::uint16_t keyboardEvents =
    XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
constexpr std::uint16_t stateParts = XCB_XKB_STATE_PART_MODIFIER_BASE | XCB_XKB_STATE_PART_MODIFIER_LATCH |
                                     XCB_XKB_STATE_PART_MODIFIER_LOCK | XCB_XKB_STATE_PART_GROUP_BASE |
                                     XCB_XKB_STATE_PART_GROUP_LATCH | XCB_XKB_STATE_PART_GROUP_LOCK;
constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                   XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                   XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
constexpr std::uint16_t newKeyboardParts = XCB_XKB_NKN_DETAIL_KEYCODES | XCB_XKB_NKN_DETAIL_DEVICE_ID;

KeyboardState stateIn(const xcb_generic_event_t& event) {
  const auto& notice = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
  return {notice.baseMods,
          notice.latchedMods,
          notice.lockedMods,
          static_cast<xkb_layout_index_t>(notice.baseGroup),
          static_cast<xkb_layout_index_t>(notice.latchedGroup),
          notice.lockedGroup};
}

}  // namespace

std::unique_ptr<X11Keyboard> X11Keyboard::open(X11Connection& connection, SecureInput isSecureInput) {
  std::uint8_t firstEvent = 0;
  const int isThere =
      xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                  XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent, nullptr);
  if (isThere == 0) return nullptr;
  std::unique_ptr<X11Keyboard> keyboard(new X11Keyboard(connection, std::move(isSecureInput), firstEvent));
  return keyboard->translator_ ? std::move(keyboard) : nullptr;
}

X11Keyboard::X11Keyboard(X11Connection& connection, SecureInput isSecureInput, std::uint8_t firstEvent)
    : connection_(connection),
      isSecureInput_(std::move(isSecureInput)),
      firstEvent_(firstEvent),
      device_(xkb_x11_get_core_keyboard_device_id(connection.get())),
      context_(xkb_context_new(
          static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES | XKB_CONTEXT_NO_ENVIRONMENT_NAMES))) {
  selectEvents(keyboardEvents);
  load();
}

X11Keyboard::~X11Keyboard() { selectEvents(0); }

void X11Keyboard::selectEvents(std::uint16_t events) {
  xcb_xkb_select_events_details_t details{};
  details.affectNewKeyboard = newKeyboardParts;
  details.newKeyboardDetails = newKeyboardParts;
  details.affectState = stateParts;
  details.stateDetails = stateParts;
  xcb_xkb_select_events_aux(connection_.get(), static_cast<xcb_xkb_device_spec_t>(device_), keyboardEvents,
                            static_cast<std::uint16_t>(keyboardEvents & ~events), 0, mapParts, mapParts, &details);
}

// Reading the layout waits for the server without a bound of ours; it happens at the start and after a change only.
void X11Keyboard::load() {
  isOutdated_ = false;
  KeymapPtr keymap(
      xkb_x11_keymap_new_from_device(context_.get(), connection_.get(), device_, XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!keymap) return;
  KeyStatePtr state(xkb_x11_state_new_from_device(keymap.get(), connection_.get(), device_));
  if (!state) return;
  translator_ = std::make_unique<KeyTranslator>(std::move(keymap), std::move(state), isSecureInput_);
}

void X11Keyboard::handle(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7F) != firstEvent_) return;
  switch (event.pad0) {  // the kind of an event of this extension
    case XCB_XKB_STATE_NOTIFY: translator_->update(stateIn(event)); break;
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY: isOutdated_ = true; break;
    default: break;
  }
}

NSEvent X11Keyboard::translate(xcb_keycode_t key) {
  if (isOutdated_) load();
  return translator_->translate(key);
}

}  // namespace norra::linux_desktop
