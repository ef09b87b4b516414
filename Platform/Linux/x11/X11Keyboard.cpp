#include "Platform/Linux/x11/X11Keyboard.h"

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

// Of an answer or an event, which name their parts alike.
template <typename Message>
KeyboardState stateIn(const Message& message) {
  return {message.baseMods,
          message.latchedMods,
          message.lockedMods,
          static_cast<xkb_layout_index_t>(message.baseGroup),
          static_cast<xkb_layout_index_t>(message.latchedGroup),
          message.lockedGroup};
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
  loadState();
  loadLayout();
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

void X11Keyboard::loadState() {
  const auto request = xcb_xkb_get_state(connection_.get(), static_cast<xcb_xkb_device_spec_t>(device_));
  if (const auto reply = connection_.await<&xcb_xkb_get_state_reply>(request)) state_ = stateIn(*reply);
}

// Waits for the server without a bound of ours; that happens at the start and after a change only. The state stays what
// the events have told so far: the server's own may be that of later key presses already.
void X11Keyboard::loadLayout() {
  isLayoutOutdated_ = false;
  KeymapPtr keymap(
      xkb_x11_keymap_new_from_device(context_.get(), connection_.get(), device_, XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!keymap) return;
  translator_ = std::make_unique<KeyTranslator>(std::move(keymap), isSecureInput_);
  translator_->update(state_);
}

void X11Keyboard::didChangeState(const KeyboardState& state) {
  state_ = state;
  translator_->update(state);
}

void X11Keyboard::handle(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7F) != firstEvent_) return;
  switch (event.pad0) {  // the kind of an event of this extension
    case XCB_XKB_STATE_NOTIFY:
      didChangeState(stateIn(reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event)));
      break;
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY: isLayoutOutdated_ = true; break;
    default: break;
  }
}

NSEvent X11Keyboard::translate(xcb_keycode_t key) {
  if (isLayoutOutdated_) loadLayout();
  return translator_->translate(key);
}

}  // namespace norra::linux_desktop
