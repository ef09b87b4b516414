#include "Platform/Linux/atspi/AccessibilitySwitch.h"

#include <chrono>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/runtime/PlatformLogger.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {
namespace {

constexpr const char* name = "org.a11y.Bus";
constexpr const char* path = "/org/a11y/bus";
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr const char* status = "org.a11y.Status";
constexpr const char* isEnabled = "IsEnabled";
// Only a switch that must be set by hand has this beside it.
constexpr const char* setByHand = "ScreenReaderEnabled";
constexpr std::chrono::seconds limit{5};
constexpr const char* stillOn =
    "Accessibility could not be switched off again, since the session bus or its accessibility service does not "
    "answer. "
    "The next service of this session does it; by hand: gsettings set org.gnome.desktop.interface "
    "toolkit-accessibility false";

MessagePtr newSetCall(sd_bus* bus, bool on) {
  sd_bus_message* call = nullptr;
  sd_bus_message_new_method_call(bus, &call, name, path, properties, "Set");
  if (call != nullptr) sd_bus_message_append(call, "ssv", status, isEnabled, "b", on ? 1 : 0);
  return MessagePtr(call);
}

bool isOpen(sd_bus* bus) { return sd_bus_is_open(bus) > 0; }

bool takesOff(sd_bus* bus, std::chrono::steady_clock::time_point deadline) {
  return answerTo(bus, newSetCall(bus, false).get(), deadline) != nullptr;
}

bool isError(sd_bus_message* message) { return sd_bus_message_is_method_error(message, nullptr) > 0; }

}  // namespace

AccessibilitySwitch::AccessibilitySwitch(sd_event* event)
    : marker_("norra-accessibility-switched-on"), bus_(openSessionBus(event, "accessibility switch").bus) {
  isOurs_ = marker_.isSet();
  if (!bus_) return;
  sd_bus_set_close_on_exit(bus_.get(), 0);  // the end of the loop is not the end of its use
  ask(setByHand, onKind);
}

AccessibilitySwitch::~AccessibilitySwitch() {
  if (!isOurs_ || !marker_.isLastHolder()) return;
  if (isSwitchedOff()) {
    marker_.clear();
  } else {
    platformLogger().warning(stillOn);
  }
}

void AccessibilitySwitch::ask(const char* property, sd_bus_message_handler_t answered) {
  sd_bus_slot* slot = nullptr;
  sd_bus_call_method_async(bus_.get(), &slot, name, path, properties, "Get", answered, this, "ss", status, property);
  question_.reset(slot);
}

int AccessibilitySwitch::onKind(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  if (!isError(message)) static_cast<AccessibilitySwitch*>(self)->ask(isEnabled, onState);
  return 0;
}

int AccessibilitySwitch::onState(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  auto& theSwitch = *static_cast<AccessibilitySwitch*>(self);
  const auto isOn = isError(message) ? std::nullopt : readInteger(message);
  if (!isOn) return 0;
  theSwitch.isOurs_ = isOn == 0 || theSwitch.marker_.isSet();
  if (isOn == 0) theSwitch.switchOn();
  if (!theSwitch.isOurs_) theSwitch.marker_.letGo();
  return 0;
}

void AccessibilitySwitch::switchOn() {
  marker_.set();
  const auto call = newSetCall(bus_.get(), true);
  sd_bus_send(bus_.get(), call.get(), nullptr);
  platformLogger().info(
      "Accessibility was switched on for this session. Applications that run already may need a restart");
}

// That the bus was lost may show only when it is used.
bool AccessibilitySwitch::isSwitchedOff() {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  if (isOpen(bus_.get()) && takesOff(bus_.get(), deadline)) return true;
  if (isOpen(bus_.get())) return false;
  bus_ = openSessionBus(deadline);
  return bus_ && takesOff(bus_.get(), deadline);
}

}  // namespace norra::linux_desktop
