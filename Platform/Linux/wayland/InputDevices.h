// What the kernel tells of mice and keyboards to whoever may read them: which button or key, and neither where nor what
// for. Devices are read and never grabbed, so everybody else gets the same as before.
#pragma once

#include <systemd/sd-event.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <memory>
#include <string>

#include "Platform/Linux/runtime/EventSource.h"

namespace norra::linux_desktop {

/// A key or a button, by its code in linux/input-event-codes.h.
struct InputKey {
  enum class Action : std::uint8_t { released, pressed, repeated };

  std::uint16_t code = 0;
  Action action{};
};

/// Main thread.
class InputDevices {
 public:
  using Handler = std::function<void(const InputKey& key)>;

  /// Where the system has them, or where NORRA_INPUT_DEVICES says.
  static std::filesystem::path defaultFolder();
  /// Whether any device in the folder may be read by this user.
  static bool mayRead(const std::filesystem::path& folder);

  /// Reads all that it may, those that come later too, while it exists. `event` must outlive this. `handler` must not
  /// end it.
  InputDevices(sd_event* event, std::filesystem::path folder, Handler handler);
  ~InputDevices();
  InputDevices(const InputDevices&) = delete;
  InputDevices& operator=(const InputDevices&) = delete;

  /// Whether this lock is on at any keyboard, as its light shows: LED_NUML, LED_CAPSL.
  bool isLightOn(unsigned light) const;

 private:
  struct Device;

  void addAll();
  void add(const std::filesystem::path& path);
  void read(Device& device);
  void watchFolder();
  static int onInput(sd_event_source* source, int descriptor, std::uint32_t events, void* device) noexcept;
  static int onFolder(sd_event_source* source, int descriptor, std::uint32_t events, void* self) noexcept;

  sd_event* const event_;
  const std::filesystem::path folder_;
  const Handler handler_;
  std::list<Device> devices_;
  EventSourcePtr folderSource_;
};

}  // namespace norra::linux_desktop
