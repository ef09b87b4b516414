#include "Platform/Linux/wayland/SwayWindows.h"

#include <poll.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

using Json = nlohmann::json;

constexpr int deepestLevel = 64;

std::string textIn(const Json& node, const char* member) {
  const auto found = node.find(member);
  return found != node.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::int64_t numberIn(const Json& node, const char* member) {
  const auto found = node.find(member);
  return found != node.end() && found->is_number_integer() ? found->get<std::int64_t>() : 0;
}

bool isTrueIn(const Json& node, const char* member) {
  const auto found = node.find(member);
  return found != node.end() && found->is_boolean() && found->get<bool>();
}

// Without a place: of no use where nothing tells of the pointer.
CompositorWindow windowIn(const Json& node) {
  CompositorWindow window;
  window.onScreen.window = static_cast<std::uint32_t>(numberIn(node, "id"));
  window.onScreen.process = static_cast<ProcessIdentifier>(numberIn(node, "pid"));
  window.onScreen.title = textIn(node, "name");
  window.applicationIdentifier = textIn(node, "app_id");
  window.isOfX11 = textIn(node, "shell") == "xwayland";
  return window;
}

void addWindows(const Json& node, int level, SwayTree& tree) {
  if (!node.is_object() || level > deepestLevel) return;
  if (numberIn(node, "pid") > 0) {
    tree.windows.push_back(windowIn(node));
    if (isTrueIn(node, "focused")) tree.active = tree.windows.back();
  }
  for (const auto* member : {"nodes", "floating_nodes"}) {
    const auto children = node.find(member);
    if (children == node.end() || !children->is_array()) continue;
    for (const auto& child : *children) addWindows(child, level + 1, tree);
  }
}

}  // namespace

SwayTree readSwayTree(std::string_view json) {
  SwayTree tree;
  addWindows(Json::parse(json, nullptr, false), 0, tree);
  return tree;
}

/// A connection of its own, on which events arrive.
class SwayWindows::Following final : public Registration {
 public:
  Following(SwayWindows& windows, std::function<void()> changed)
      : windows_(windows), connection_(SwayConnection::open(windows.socketPath_)), changed_(std::move(changed)) {
    if (!connection_ || !connection_->send(SwayMessage::subscribe, R"(["window","workspace"])")) return;
    sd_event_source* source = nullptr;
    require(sd_event_add_io(windows.event_, &source, connection_->descriptor(), POLLIN, onInput, this),
            "sd_event_add_io");
    source_.reset(source);
    windows_.setFollowed(true);
  }
  ~Following() override { windows_.setFollowed(false); }

 private:
  static int onInput(sd_event_source*, int, std::uint32_t, void* self) noexcept {
    static_cast<Following*>(self)->receive();
    return 0;
  }

  void receive() {
    const auto event = connection_->receive();
    windows_.setFollowed(event.has_value());
    if (!event) {
      platformLogger().error("The compositor tells no more of its windows");
      return source_.reset();
    }
    const auto changed = changed_;
    if (event->kind == SwayMessage::windowEvent || event->kind == SwayMessage::workspaceEvent) changed();
  }

  SwayWindows& windows_;
  const std::unique_ptr<SwayConnection> connection_;
  const std::function<void()> changed_;
  EventSourcePtr source_;
};

std::unique_ptr<SwayWindows> SwayWindows::open(sd_event* event) {
  const char* path = std::getenv("SWAYSOCK");
  auto connection = path == nullptr ? nullptr : SwayConnection::open(path);
  if (!connection) return nullptr;
  return std::unique_ptr<SwayWindows>(new SwayWindows(event, path, std::move(connection)));
}

std::unique_ptr<Registration> SwayWindows::follow(std::function<void()> changed) {
  return std::make_unique<Following>(*this, std::move(changed));
}

void SwayWindows::setFollowed(bool isFollowed) {
  const std::lock_guard lock(mutex_);
  isFollowed_ = isFollowed;
  latest_.reset();
}

SwayTree SwayWindows::tree() {
  const std::lock_guard lock(mutex_);
  if (latest_) return *latest_;
  auto tree = askTree();
  if (isFollowed_ && connection_) latest_ = tree;
  return tree;
}

// With the lock held. An answer that was late would be taken for the next one, so after a failure there is another
// connection.
SwayTree SwayWindows::askTree() {
  if (!connection_) connection_ = SwayConnection::open(socketPath_);
  if (!connection_) return {};
  const auto reply = connection_->send(SwayMessage::getTree) ? connection_->receive() : std::nullopt;
  if (!reply) connection_.reset();
  return reply ? readSwayTree(reply->payload) : SwayTree{};
}

bool SwayWindows::isTelling() {
  const std::lock_guard lock(mutex_);
  return connection_ != nullptr;
}

std::optional<CompositorWindow> SwayWindows::activeWindow() { return tree().active; }

std::optional<CompositorWindow> SwayWindows::windowOf(ProcessIdentifier process) {
  auto [windows, active] = tree();
  if (active && active->onScreen.process == process) return active;
  const auto isOfProcess = [process](const auto& window) { return window.onScreen.process == process; };
  const auto found = std::ranges::find_if(windows, isOfProcess);
  if (found == windows.end()) return std::nullopt;
  return std::move(*found);
}

}  // namespace norra::linux_desktop
