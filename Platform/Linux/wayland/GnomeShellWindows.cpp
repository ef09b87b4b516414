#include "Platform/Linux/wayland/GnomeShellWindows.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr const char* shell = "org.gnome.Shell";
constexpr const char* extensionPath = "/com/norra/GnomeShell";
constexpr const char* extensionInterface = "com.norra.GnomeShell";
constexpr const char* enabledRule =
    "type='signal',sender='org.gnome.Shell',path='/com/norra/GnomeShell',interface='com.norra.GnomeShell',"
    "member='Enabled'";
constexpr std::uint64_t patienceMicroseconds = 250'000;

bool isExtensionThere(sd_bus* bus) {
  sd_bus_message* handle = nullptr;
  sd_bus_message* answer = nullptr;
  if (sd_bus_message_new_method_call(bus, &handle, shell, extensionPath, "org.freedesktop.DBus.Properties", "Get") <
      0) {
    return false;
  }
  const MessagePtr call(handle);
  sd_bus_message_append(handle, "ss", extensionInterface, "Version");
  const int result = sd_bus_call(bus, handle, patienceMicroseconds, nullptr, &answer);
  const MessagePtr reply(answer);
  return result >= 0;
}

}  // namespace

class GnomeShellWindows::FollowingButtons final : public Registration {
 public:
  explicit FollowingButtons(GnomeShellWindows& windows) : windows_(windows) {}
  ~FollowingButtons() override { windows_.handler_ = nullptr; }

 private:
  GnomeShellWindows& windows_;
};

std::unique_ptr<GnomeShellWindows> GnomeShellWindows::open(sd_event* event) {
  auto opened = openSessionBus(event, "GNOME Shell");
  auto owner = opened.bus ? ownerOnBus(opened.bus.get(), shell) : std::string();
  if (owner.empty()) return nullptr;
  return std::unique_ptr<GnomeShellWindows>(new GnomeShellWindows(std::move(opened.bus), std::move(owner)));
}

GnomeShellWindows::GnomeShellWindows(BusPtr bus, std::string owner)
    : ToldCompositor(std::move(bus), shell, std::move(owner)), isEnabled_(isExtensionThere(this->bus())) {
  sd_bus_slot* slot = nullptr;
  sd_bus_add_match_async(this->bus(), &slot, enabledRule, onEnabled, nullptr, this);
  enabled_.reset(slot);
}

std::unique_ptr<Registration> GnomeShellWindows::followButtons(ButtonHandler handler) {
  handler_ = std::move(handler);
  return std::make_unique<FollowingButtons>(*this);
}

void GnomeShellWindows::begin() {
  sd_bus_slot* slot = nullptr;
  sd_bus_call_method_async(bus(), &slot, shell, extensionPath, extensionInterface, "Follow", onFollowed, this, nullptr);
  following_.reset(slot);
}

void GnomeShellWindows::end() {
  following_.reset();
  if (!isEnabled_ || !isOnBus()) return;
  sd_bus_call_method_async(bus(), nullptr, shell, extensionPath, extensionInterface, "Leave", nullptr, nullptr,
                           nullptr);
  sendQueued(bus(), std::chrono::milliseconds(100));
}

int GnomeShellWindows::onFollowed(sd_bus_message* reply, void* self, sd_bus_error* /*error*/) noexcept {
  const auto* refusal = sd_bus_message_get_error(reply);
  static_cast<GnomeShellWindows*>(self)->isEnabled_ = refusal == nullptr;
  if (refusal != nullptr) platformLogger().info("The extension of GNOME Shell tells nothing: " + describe(*refusal));
  return 0;
}

int GnomeShellWindows::onEnabled(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) noexcept {
  int isEnabled = 0;
  if (sd_bus_message_read(signal, "b", &isEnabled) >= 0) {
    static_cast<GnomeShellWindows*>(self)->setEnabled(isEnabled != 0);
  }
  return 0;
}

void GnomeShellWindows::setEnabled(bool isEnabled) {
  isEnabled_ = isEnabled;
  beginAnew();
}

void GnomeShellWindows::didTell(const CompositorState& state, const std::vector<std::uint16_t>& buttonsBefore) {
  const auto tell = [&](const auto& buttons, const auto& others, InputKey::Action action) {
    for (const auto button : buttons) {
      if (handler_ && std::ranges::find(others, button) == others.end()) handler_({button, action}, state.pointed);
    }
  };
  tell(buttonsBefore, state.buttons, InputKey::Action::released);
  tell(state.buttons, buttonsBefore, InputKey::Action::pressed);
}

}  // namespace norra::linux_desktop
