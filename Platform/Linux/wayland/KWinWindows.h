// The windows of KWin, as a script in it tells them over the session bus.
#pragma once

#include <systemd/sd-event.h>

#include <filesystem>

#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/wayland/ToldCompositor.h"

namespace norra::linux_desktop {

class KWinWindows final : public ToldCompositor {
 public:
  /// Null: KWin is not there. `event` must outlive the result.
  static std::unique_ptr<KWinWindows> open(sd_event* event, bool tellsPointer);

  bool tellsPointer() const override { return tellsPointer_; }

 private:
  KWinWindows(sd_event* event, BusPtr bus, std::string owner, bool tellsPointer);
  void begin() override;
  void end() override { unload(); }
  void didTell(const CompositorState& state, const std::vector<std::uint16_t>& buttonsBefore) override;
  void load();
  void unload();
  void run(std::int32_t script);
  void tryAgain(const std::string& why);

  static int onLoaded(sd_bus_message* reply, void* self, sd_bus_error* error) noexcept;

  const bool tellsPointer_;
  const std::filesystem::path file_;  // the script, while KWin reads it
  SlotPtr loading_;
  int triesLeft_ = 0;
  DeferredRun nextTry_;
};

}  // namespace norra::linux_desktop
