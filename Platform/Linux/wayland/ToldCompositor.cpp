#include "Platform/Linux/wayland/ToldCompositor.h"

#include <utility>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t patienceMicroseconds = 250'000;

std::string ownerRule(const char* name) {
  return "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
         "member='NameOwnerChanged',arg0='" +
         std::string(name) + "'";
}

}  // namespace

std::string ownerOnBus(sd_bus* bus, const char* name) {
  sd_bus_message* handle = nullptr;
  sd_bus_message* answer = nullptr;
  if (sd_bus_message_new_method_call(bus, &handle, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                     "org.freedesktop.DBus", "GetNameOwner") < 0) {
    return {};
  }
  const MessagePtr call(handle);
  const char* owner = nullptr;
  sd_bus_message_append(handle, "s", name);
  const int result = sd_bus_call(bus, handle, patienceMicroseconds, nullptr, &answer);
  const MessagePtr reply(answer);
  return result >= 0 && sd_bus_message_read(answer, "s", &owner) >= 0 ? owner : std::string();
}

class ToldCompositor::Following final : public Registration {
 public:
  explicit Following(ToldCompositor& compositor) : compositor_(compositor) { compositor_.begin(); }
  ~Following() override {
    compositor_.changed_ = nullptr;
    compositor_.end();
    compositor_.forget();
  }

 private:
  ToldCompositor& compositor_;
};

ToldCompositor::ToldCompositor(BusPtr bus, const char* name, std::string owner)
    : bus_(std::move(bus)), name_(name), owner_(std::move(owner)) {
  static const sd_bus_vtable methods[] = {
      SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Tell", "s", "", onTold, SD_BUS_VTABLE_UNPRIVILEGED), SD_BUS_VTABLE_END};
  sd_bus_slot* slot = nullptr;
  sd_bus_add_object_vtable(bus_.get(), &slot, compositorListenerPath, compositorListenerInterface, methods, this);
  object_.reset(slot);
  slot = nullptr;
  sd_bus_add_match_async(bus_.get(), &slot, ownerRule(name_).c_str(), onOwner, nullptr, this);
  owners_.reset(slot);
}

std::unique_ptr<Registration> ToldCompositor::follow(std::function<void()> changed) {
  changed_ = std::move(changed);
  return std::make_unique<Following>(*this);
}

void ToldCompositor::setOwner(std::string owner) {
  owner_ = std::move(owner);
  beginAnew();
}

void ToldCompositor::beginAnew() {
  forget();
  const auto changed = changed_;
  if (!changed) return;
  begin();
  changed();
}

int ToldCompositor::onOwner(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) noexcept {
  const char* name = nullptr;
  const char* before = nullptr;
  const char* owner = nullptr;
  if (sd_bus_message_read(signal, "sss", &name, &before, &owner) >= 0) {
    static_cast<ToldCompositor*>(self)->setOwner(owner);
  }
  return 0;
}

int ToldCompositor::onTold(sd_bus_message* call, void* self, sd_bus_error* /*error*/) noexcept {
  return static_cast<ToldCompositor*>(self)->told(call);
}

// Nobody but the compositor is believed.
int ToldCompositor::told(sd_bus_message* call) {
  const char* text = nullptr;
  const char* sender = sd_bus_message_get_sender(call);
  const bool isOfCompositor = sender != nullptr && sender == owner_;
  if (!isOfCompositor || sd_bus_message_read(call, "s", &text) < 0) {
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "Only the compositor tells of its windows");
  }
  auto state = readCompositorState(text);
  if (state && changed_) use(*std::move(state));
  return sd_bus_reply_method_return(call, "");
}

void ToldCompositor::use(CompositorState state) {
  const auto idOf = [](const auto& window) { return window ? window->onScreen.window : 0; };
  std::optional<CompositorState> before;
  {
    const std::lock_guard lock(mutex_);
    before = std::exchange(state_, state);
  }
  didTell(state, before ? before->buttons : std::vector<std::uint16_t>());
  const auto changed = changed_;
  if (changed && (!before || idOf(before->active) != idOf(state.active))) changed();
}

void ToldCompositor::forget() {
  const std::lock_guard lock(mutex_);
  state_.reset();
}

// What is told comes on the same way as the answer, before it.
void ToldCompositor::whenPointerIsTold(std::function<void()> then) {
  whenAnswered_ = std::move(then);
  sd_bus_message* handle = nullptr;
  sd_bus_slot* slot = nullptr;
  const int made = sd_bus_message_new_method_call(bus_.get(), &handle, name_, "/", "org.freedesktop.DBus.Peer", "Ping");
  const MessagePtr ping(handle);
  if (made >= 0) sd_bus_call_async(bus_.get(), &slot, handle, onAnswer, this, patienceMicroseconds);
  answer_.reset(slot);
  if (slot == nullptr) std::exchange(whenAnswered_, nullptr)();
}

int ToldCompositor::onAnswer(sd_bus_message* /*reply*/, void* self, sd_bus_error* /*error*/) noexcept {
  const auto then = std::exchange(static_cast<ToldCompositor*>(self)->whenAnswered_, nullptr);
  if (then) then();
  return 0;
}

bool ToldCompositor::isTelling() {
  const std::lock_guard lock(mutex_);
  return state_.has_value();
}

std::optional<CompositorWindow> ToldCompositor::activeWindow() {
  const std::lock_guard lock(mutex_);
  return state_ ? state_->active : std::nullopt;
}

std::optional<PointedWindow> ToldCompositor::pointed() {
  const std::lock_guard lock(mutex_);
  return state_ ? state_->pointed : std::nullopt;
}

std::optional<CompositorWindow> ToldCompositor::windowOf(ProcessIdentifier process) {
  auto active = activeWindow();
  return active && active->onScreen.process == process ? active : std::nullopt;
}

}  // namespace norra::linux_desktop
