#include "Platform/Linux/atspi/AccessibilitySwitch.h"

#include <chrono>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr const char* name = "org.a11y.Bus";
constexpr const char* path = "/org/a11y/bus";
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr const char* status = "org.a11y.Status";
constexpr std::chrono::milliseconds limit{250};

}  // namespace

AccessibilitySwitch::AccessibilitySwitch(sd_event* event) : bus_(openSessionBus(event, "accessibility switch").bus) {
  if (bus_) askWhetherOn();
}

AccessibilitySwitch::~AccessibilitySwitch() {
  if (!wasSwitchedOn_) return;
  switchTo(false);
  sendQueued(bus_.get(), limit);
}

void AccessibilitySwitch::askWhetherOn() {
  sd_bus_slot* slot = nullptr;
  sd_bus_call_method_async(bus_.get(), &slot, name, path, properties, "Get", onAnswer, this, "ss", status, "IsEnabled");
  question_.reset(slot);
}

int AccessibilitySwitch::onAnswer(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  auto& theSwitch = *static_cast<AccessibilitySwitch*>(self);
  const auto isOn = sd_bus_message_is_method_error(message, nullptr) > 0 ? std::nullopt : readInteger(message);
  if (isOn != 0) return 0;
  theSwitch.switchTo(true);
  theSwitch.wasSwitchedOn_ = true;
  platformLogger().info(
      "Accessibility was switched on for this session. Applications that run already may need a restart");
  return 0;
}

void AccessibilitySwitch::switchTo(bool on) {
  sd_bus_call_method_async(bus_.get(), nullptr, name, path, properties, "Set", nullptr, nullptr, "ssv", status,
                           "IsEnabled", "b", on ? 1 : 0);
}

}  // namespace norra::linux_desktop
