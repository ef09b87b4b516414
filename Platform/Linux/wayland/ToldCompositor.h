// A compositor whose script or extension calls the service over the session bus whenever something has changed.
#pragma once

#include <systemd/sd-event.h>

#include <mutex>
#include <string>

#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/wayland/CompositorState.h"

namespace norra::linux_desktop {

// Where the listener's object is, on which Tell is called with the text.
inline constexpr const char* compositorListenerPath = "/com/norra/Compositor";
inline constexpr const char* compositorListenerInterface = "com.norra.Compositor";

/// Its unique name on the session bus; empty: it is not there.
std::string ownerOnBus(sd_bus* bus, const char* name);

/// Tells only while it is followed. The compositor may refuse to, go, and come back. Nobody else on the bus is
/// believed.
class ToldCompositor : public Compositor {
 public:
  ToldCompositor(const ToldCompositor&) = delete;
  ToldCompositor& operator=(const ToldCompositor&) = delete;

  bool isTelling() override;
  std::optional<CompositorWindow> activeWindow() override;
  std::optional<CompositorWindow> windowOf(ProcessIdentifier process) override;
  std::optional<PointedWindow> pointed() override;
  void whenPointerIsTold(std::function<void()> then) override;
  std::unique_ptr<Registration> follow(std::function<void()> changed) override;

 protected:
  /// `name` is a literal, the compositor's name on the bus.
  ToldCompositor(BusPtr bus, const char* name, std::string owner);
  ~ToldCompositor() override = default;

  sd_bus* bus() const { return bus_.get(); }
  bool isFollowed() const { return changed_ != nullptr; }
  /// Whether the compositor is there.
  bool isOnBus() const { return !owner_.empty(); }
  /// To be told that nothing is known, until something is.
  void forget();
  /// The compositor may tell again, or has ceased to.
  void beginAnew();

 private:
  class Following;

  /// Asks the compositor to tell; called again when it has come back.
  virtual void begin() = 0;
  virtual void end() = 0;
  /// What was told, and how the buttons were before; after it is known to all others.
  virtual void didTell(const CompositorState& /*state*/, const std::vector<std::uint16_t>& /*buttonsBefore*/) {}

  void setOwner(std::string owner);
  int told(sd_bus_message* call);
  void use(CompositorState state);

  static int onTold(sd_bus_message* call, void* self, sd_bus_error* error) noexcept;
  static int onOwner(sd_bus_message* signal, void* self, sd_bus_error* error) noexcept;
  static int onAnswer(sd_bus_message* reply, void* self, sd_bus_error* error) noexcept;

  const BusPtr bus_;
  const char* const name_;
  std::string owner_;              // the compositor's unique name; empty: it has gone
  std::function<void()> changed_;  // empty: nobody follows
  SlotPtr object_;
  SlotPtr owners_;
  SlotPtr answer_;
  std::function<void()> whenAnswered_;

  std::mutex mutex_;
  std::optional<CompositorState> state_;  // guarded by mutex_; nothing: it was not told
};

}  // namespace norra::linux_desktop
