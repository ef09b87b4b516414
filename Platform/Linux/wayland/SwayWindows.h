// The windows of sway, and of compositors that speak as it does, over the socket that SWAYSOCK names.
#pragma once

#include <systemd/sd-event.h>

#include <mutex>
#include <vector>

#include "Platform/Linux/runtime/EventSource.h"
#include "Platform/Linux/wayland/Compositor.h"
#include "Platform/Linux/wayland/SwayConnection.h"

namespace norra::linux_desktop {

/// What there is in sway's answer to a request for its tree. The windows have no places.
struct SwayTree {
  std::vector<CompositorWindow> windows;
  std::optional<CompositorWindow> active;
};

/// Empty where it is not such an answer.
SwayTree readSwayTree(std::string_view json);

class SwayWindows final : public Compositor {
 public:
  /// Null: no such compositor is there. `event` must outlive the result.
  static std::unique_ptr<SwayWindows> open(sd_event* event);

  bool isTelling() override;
  std::optional<CompositorWindow> activeWindow() override;
  std::optional<CompositorWindow> windowOf(ProcessIdentifier process) override;
  std::unique_ptr<Registration> follow(std::function<void()> changed) override;

 private:
  class Following;

  SwayWindows(sd_event* event, std::string socketPath, std::unique_ptr<SwayConnection> connection)
      : event_(event), socketPath_(std::move(socketPath)), connection_(std::move(connection)) {}
  SwayTree tree();
  SwayTree askTree();
  void setFollowed(bool isFollowed);

  sd_event* const event_;
  const std::string socketPath_;
  std::mutex mutex_;

  // Guarded by mutex_.
  std::unique_ptr<SwayConnection> connection_;  // null: lost
  bool isFollowed_ = false;                     // and told of every change
  std::optional<SwayTree> latest_;              // of which nothing has changed since; while it is followed
};

}  // namespace norra::linux_desktop
