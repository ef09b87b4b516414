#include "Platform/Linux/wayland/InputDevices.h"

#include <fcntl.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace norra::linux_desktop {
namespace {

namespace fs = std::filesystem;

bool isDevice(const fs::path& path) { return path.filename().string().starts_with("event"); }

int openDevice(const fs::path& path) { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); }

// Moves come by the thousand, and nobody needs them. A kernel that does not know of it tells of them.
void silenceMoves(int descriptor) {
  for (const auto type : {EV_REL, EV_ABS, EV_MSC}) {
    const std::array<std::uint8_t, 8> none{};
    input_mask mask{};
    mask.type = static_cast<__u32>(type);
    mask.codes_size = none.size();
    mask.codes_ptr = reinterpret_cast<std::uintptr_t>(none.data());
    ioctl(descriptor, EVIOCSMASK, &mask);
  }
}

}  // namespace

struct InputDevices::Device {
  InputDevices& devices;
  std::string name;
  int descriptor = -1;
  EventSourcePtr source = {};
};

fs::path InputDevices::defaultFolder() {
  const char* folder = std::getenv("NORRA_INPUT_DEVICES");
  return folder == nullptr ? "/dev/input" : folder;
}

bool InputDevices::mayRead(const fs::path& folder) {
  std::error_code error;
  return std::ranges::any_of(fs::directory_iterator(folder, error), [](const auto& entry) {
    return isDevice(entry.path()) && access(entry.path().c_str(), R_OK) == 0;
  });
}

InputDevices::InputDevices(sd_event* event, fs::path folder, Handler handler)
    : event_(event), folder_(std::move(folder)), handler_(std::move(handler)) {
  watchFolder();
  addAll();
}

InputDevices::~InputDevices() = default;

// A device may be read only some time after it came, when its owner is set.
void InputDevices::watchFolder() {
  const int inotify = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (inotify < 0) return;
  inotify_add_watch(inotify, folder_.c_str(), IN_CREATE | IN_ATTRIB);
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event_, &source, inotify, POLLIN, onFolder, this), "sd_event_add_io");
  folderSource_.reset(source);
  require(sd_event_source_set_io_fd_own(source, 1), "sd_event_source_set_io_fd_own");
}

void InputDevices::addAll() {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder_, error)) {
    if (isDevice(entry.path())) add(entry.path());
  }
}

void InputDevices::add(const fs::path& path) {
  auto name = path.filename().string();
  if (std::ranges::find(devices_, name, &Device::name) != devices_.end()) return;
  const int descriptor = openDevice(path);
  if (descriptor < 0) return;
  silenceMoves(descriptor);
  auto& device = devices_.emplace_back(Device{*this, std::move(name), descriptor});
  sd_event_source* source = nullptr;
  require(sd_event_add_io(event_, &source, descriptor, POLLIN, onInput, &device), "sd_event_add_io");
  device.source.reset(source);
  require(sd_event_source_set_io_fd_own(source, 1), "sd_event_source_set_io_fd_own");
}

// A device that was taken away ends; one whose reader was too slow goes on.
void InputDevices::read(Device& device) {
  std::array<input_event, 32> events{};
  const auto size = ::read(device.descriptor, events.data(), sizeof(events));
  if (size < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (size <= 0) return devices_.remove_if([&device](const auto& each) { return &each == &device; }), void();
  const auto count = static_cast<std::size_t>(size) / sizeof(input_event);
  for (std::size_t i = 0; i < count; ++i) {
    const auto& [time, type, code, value] = events[i];
    if (type == EV_KEY && value >= 0 && value <= 2) handler_({code, static_cast<InputKey::Action>(value)});
  }
}

bool InputDevices::isLightOn(unsigned light) const {
  return std::ranges::any_of(devices_, [light](const auto& device) {
    std::array<std::uint8_t, LED_MAX / 8 + 1> lights{};
    return ioctl(device.descriptor, EVIOCGLED(lights.size()), lights.data()) >= 0 &&
           (lights.at(light / 8) >> (light % 8) & 1) != 0;
  });
}

int InputDevices::onInput(sd_event_source*, int, std::uint32_t, void* device) noexcept {
  auto& each = *static_cast<Device*>(device);
  each.devices.read(each);
  return 0;
}

int InputDevices::onFolder(sd_event_source*, int descriptor, std::uint32_t, void* self) noexcept {
  std::array<char, 4096> changes{};
  while (::read(descriptor, changes.data(), changes.size()) > 0) {
  }
  static_cast<InputDevices*>(self)->addAll();
  return 0;
}

}  // namespace norra::linux_desktop
