// The windows of KWin, as a script in it tells them over the session bus.
#pragma once

#include <systemd/sd-event.h>

#include <filesystem>
#include <mutex>

#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/wayland/KWinScript.h"

namespace norra::linux_desktop {

/// Tells only while it is followed. KWin may refuse the script, go, and come back.
class KWinWindows final : public Compositor {
 public:
  /// Null: KWin is not there. `event` must outlive the result.
  static std::unique_ptr<KWinWindows> open(sd_event* event, bool tellsPointer);

  bool isTelling() override;
  std::optional<CompositorWindow> activeWindow() override;
  std::optional<CompositorWindow> windowOf(ProcessIdentifier process) override;
  bool tellsPointer() const override { return tellsPointer_; }
  std::optional<PointedWindow> pointed() override;
  void whenPointerIsTold(std::function<void()> then) override;
  std::unique_ptr<Registration> follow(std::function<void()> changed) override;

 private:
  class Following;

  KWinWindows(sd_event* event, BusPtr bus, std::string owner, bool tellsPointer);
  void setOwner(std::string owner);
  void begin();
  void load();
  void unload();
  void run(std::int32_t script);
  void tryAgain(const std::string& why);
  int told(sd_bus_message* call);
  void forget();

  static int onTold(sd_bus_message* call, void* self, sd_bus_error* error) noexcept;
  static int onOwner(sd_bus_message* signal, void* self, sd_bus_error* error) noexcept;
  static int onAnswer(sd_bus_message* reply, void* self, sd_bus_error* error) noexcept;
  static int onLoaded(sd_bus_message* reply, void* self, sd_bus_error* error) noexcept;

  const BusPtr bus_;
  const bool tellsPointer_;
  const std::filesystem::path file_;  // the script, while KWin reads it
  std::string owner_;                 // KWin's unique name; empty: it has gone
  std::function<void()> changed_;     // empty: nobody follows
  SlotPtr object_;
  SlotPtr owners_;
  SlotPtr loading_;
  SlotPtr answer_;
  std::function<void()> whenAnswered_;
  int triesLeft_ = 0;
  DeferredRun nextTry_;

  std::mutex mutex_;
  std::optional<KWinState> state_;  // guarded by mutex_; nothing: it was not told
};

}  // namespace norra::linux_desktop
