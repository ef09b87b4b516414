#include "Platform/Linux/x11/X11EventTaps.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint16_t majorVersion = 2;
constexpr std::uint16_t minorVersion = 2;  // before 2.1 raw events stop while another client holds a grab

constexpr auto clicks =
    maskOf(CGEventType::leftMouseUp) | maskOf(CGEventType::rightMouseUp) | maskOf(CGEventType::otherMouseUp);
constexpr auto keyPresses = maskOf(CGEventType::keyDown);

constexpr std::uint32_t rawClicks =
    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
constexpr std::uint32_t rawKeys = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;

bool speaksInput(X11Connection& connection) {
  if (!connection.supports(xcb_input_id)) return false;
  const auto version = connection.await<&xcb_input_xi_query_version_reply>(
      xcb_input_xi_query_version(connection.get(), majorVersion, minorVersion));
  return version && (version->major_version > majorVersion ||
                     (version->major_version == majorVersion && version->minor_version >= minorVersion));
}

// Buttons 4 to 7 scroll.
std::optional<CGEventType> clickTypeOf(std::uint32_t button) {
  switch (button) {
    case 1: return CGEventType::leftMouseUp;
    case 3: return CGEventType::rightMouseUp;
    case 0:
    case 4:
    case 5:
    case 6:
    case 7: return std::nullopt;
    default: return CGEventType::otherMouseUp;
  }
}

}  // namespace

std::unique_ptr<X11EventTaps> X11EventTaps::open(sd_event* event, std::unique_ptr<X11Connection> connection,
                                                 InputListeners listeners, std::function<void()> activeWindowChanged) {
  if (!speaksInput(*connection)) return nullptr;
  return std::unique_ptr<X11EventTaps>(
      new X11EventTaps(event, std::move(connection), std::move(listeners), std::move(activeWindowChanged)));
}

// Input goes before what applications tell: that may be what came of it.
X11EventTaps::X11EventTaps(sd_event* event, std::unique_ptr<X11Connection> connection, InputListeners listeners,
                           std::function<void()> activeWindowChanged)
    : connection_(std::move(connection)),
      listeners_(std::move(listeners)),
      activeWindowChanged_(std::move(activeWindowChanged)),
      inputExtension_(xcb_get_extension_data(connection_->get(), &xcb_input_id)->major_opcode),
      source_(
          event, *connection_, [this](const auto& received) { handle(received); },
          [] { platformLogger().error("The X server has gone: clicks and keys are not seen any more"); },
          SD_EVENT_PRIORITY_IMPORTANT) {}

std::unique_ptr<EventTap> X11EventTaps::createEventTap(CGEventMask eventsOfInterest, CGEventTapCallback callback) {
  return taps_.createTap(eventsOfInterest, std::move(callback));
}

void X11EventTaps::didChangeTaps() {
  const auto wanted = taps_.wantedEvents();
  const bool wantsClicks = (wanted & clicks) != 0;
  const bool wantsKeys = (wanted & keyPresses) != 0;
  selectEvents((wantsClicks ? rawClicks : 0) | (wantsKeys ? rawKeys : 0));
  followClicks(wantsClicks);
  followKeyboard(wantsKeys);
  followActiveWindow(wantsKeys);
  xcb_flush(connection_->get());
}

void X11EventTaps::selectEvents(std::uint32_t events) {
  if (std::exchange(selectedEvents_, events) == events) return;
  const struct {
    xcb_input_event_mask_t head;
    std::uint32_t events;
  } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
  xcb_input_xi_select_events(connection_->get(), connection_->root(), 1, &selection.head);
}

void X11EventTaps::followClicks(bool isWanted) {
  if (isWanted != (clickPlaces_ != nullptr)) clickPlaces_ = isWanted ? X11ClickPlaces::open() : nullptr;
}

void X11EventTaps::followKeyboard(bool isWanted) {
  if (isWanted == (keyboard_ != nullptr)) return;
  heldKeys_.reset();
  keyboard_ = isWanted ? X11Keyboard::open(*connection_, listeners_.isSecureInput) : nullptr;
  if (isWanted && !keyboard_) platformLogger().error("The X server tells no keyboard layout: keys are not seen");
}

void X11EventTaps::followActiveWindow(bool isWanted) {
  const std::uint32_t events = isWanted ? XCB_EVENT_MASK_PROPERTY_CHANGE : XCB_EVENT_MASK_NO_EVENT;
  if (std::exchange(selectedOfRoot_, events) == events) return;
  xcb_change_window_attributes(connection_->get(), connection_->root(), XCB_CW_EVENT_MASK, &events);
  if (isWanted) activeWindowChanged_();
}

void X11EventTaps::handleProperty(const xcb_property_notify_event_t& notice) {
  const bool isOfRoot = notice.window == connection_->root();
  if (isOfRoot && notice.atom == connection_->atom(X11Atom::netActiveWindow)) activeWindowChanged_();
}

void X11EventTaps::handle(const xcb_generic_event_t& event) {
  const auto type = event.response_type & 0x7F;
  if (type == XCB_GE_GENERIC) return handleInput(event);
  if (type == XCB_MAPPING_NOTIFY) buttonMapping_.clear();
  if (type == XCB_PROPERTY_NOTIFY) handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  if (keyboard_) keyboard_->handle(event);
}

void X11EventTaps::handleInput(const xcb_generic_event_t& event) {
  const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
  if (generic.extension != inputExtension_) return;
  const auto& input = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
  switch (generic.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS: handleButtonPress(input.detail); break;
    case XCB_INPUT_RAW_BUTTON_RELEASE: handleButtonRelease(input.detail, input.time); break;
    case XCB_INPUT_RAW_KEY_PRESS:
      handleKeyPress(input.detail, (input.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0);
      break;
    case XCB_INPUT_RAW_KEY_RELEASE:
      if (input.detail < heldKeys_.size()) heldKeys_.reset(input.detail);
      break;
    default: break;
  }
}

void X11EventTaps::handleButtonPress(std::uint32_t button) {
  if (listeners_.pressed && clickTypeOf(logicalButton(button))) listeners_.pressed(placeOfPointer());
}

void X11EventTaps::handleButtonRelease(std::uint32_t button, xcb_timestamp_t time) {
  std::optional<ClickTimes::Handling> handling;
  if (listeners_.clickTimes) handling.emplace(*listeners_.clickTimes, std::chrono::steady_clock::now());
  const auto place = placeAt(time);
  const auto type = clickTypeOf(logicalButton(button));
  if (!type) return;
  if (listeners_.released) listeners_.released();
  if (!place) return clickLogger().debug("A click gives no report: the X server does not say where the pointer is");
  taps_.deliver({*type, *place, std::nullopt});
}

std::optional<CGPoint> X11EventTaps::placeAt(xcb_timestamp_t time) {
  const auto recorded = clickPlaces_ ? clickPlaces_->takePlaceAt(time) : std::nullopt;
  return recorded ? recorded : placeOfPointer();
}

std::optional<CGPoint> X11EventTaps::placeOfPointer() {
  const auto pointer =
      connection_->await<&xcb_query_pointer_reply>(xcb_query_pointer(connection_->get(), connection_->root()));
  if (!pointer) return std::nullopt;
  return CGPoint{double(pointer->root_x), double(pointer->root_y)};
}

void X11EventTaps::handleKeyPress(std::uint32_t key, bool isMarkedRepeat) {
  if (!keyboard_ || key >= heldKeys_.size()) return;
  const bool isARepeat = isMarkedRepeat || heldKeys_.test(key);
  heldKeys_.set(key);
  auto keyEvent = keyboard_->translate(static_cast<xcb_keycode_t>(key));
  keyEvent.isARepeat = isARepeat;
  taps_.deliver({CGEventType::keyDown, {}, std::move(keyEvent)});
}

// Raw events know the buttons of the device; which of them is the left one is the user's choice.
std::uint32_t X11EventTaps::logicalButton(std::uint32_t button) {
  if (buttonMapping_.empty()) {
    const auto mapping =
        connection_->await<&xcb_get_pointer_mapping_reply>(xcb_get_pointer_mapping(connection_->get()));
    if (!mapping) return button;
    const auto* map = xcb_get_pointer_mapping_map(mapping.get());
    buttonMapping_.assign(map, map + xcb_get_pointer_mapping_map_length(mapping.get()));
  }
  return button >= 1 && button <= buttonMapping_.size() ? buttonMapping_[button - 1] : button;
}

}  // namespace norra::linux_desktop
