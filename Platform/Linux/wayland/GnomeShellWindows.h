// The windows of GNOME Shell and the buttons of its pointer, as the project's extension in it tells them over the
// session bus. The shell itself tells clients neither.
#pragma once

#include <systemd/sd-event.h>

#include <atomic>

#include "Platform/Linux/wayland/ToldCompositor.h"

namespace norra::linux_desktop {

/// The extension may be enabled and disabled at any time.
class GnomeShellWindows final : public ToldCompositor {
 public:
  /// Null: GNOME Shell is not there. `event` must outlive the result.
  static std::unique_ptr<GnomeShellWindows> open(sd_event* event);

  bool tellsPointer() const override { return isEnabled_; }
  bool tellsButtons() const override { return isEnabled_; }
  bool mayTellButtons() const override { return true; }
  std::unique_ptr<Registration> followButtons(ButtonHandler handler) override;

 private:
  class FollowingButtons;

  GnomeShellWindows(BusPtr bus, std::string owner);
  void begin() override;
  void end() override;
  void didTell(const CompositorState& state, const std::vector<std::uint16_t>& buttonsBefore) override;
  void setEnabled(bool isEnabled);

  static int onFollowed(sd_bus_message* reply, void* self, sd_bus_error* error) noexcept;
  static int onEnabled(sd_bus_message* signal, void* self, sd_bus_error* error) noexcept;

  std::atomic<bool> isEnabled_;
  ButtonHandler handler_;  // empty: nobody follows
  SlotPtr enabled_;
  SlotPtr following_;
};

}  // namespace norra::linux_desktop
