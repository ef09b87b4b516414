#include "Platform/Linux/wayland/KWinWindows.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

constexpr const char* kwin = "org.kde.KWin";
constexpr const char* scriptingPath = "/Scripting";
constexpr const char* scriptingInterface = "org.kde.kwin.Scripting";
constexpr const char* scriptName = "norra-collector";
constexpr const char* ownerRule =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg0='org.kde.KWin'";
constexpr int maxTries = 5;
constexpr std::uint64_t pauseBetweenTries = 100'000;  // microseconds
constexpr std::uint64_t patienceMicroseconds = 250'000;

std::string ownerOnBus(sd_bus* bus) {
  sd_bus_message* handle = nullptr;
  sd_bus_message* answer = nullptr;
  if (sd_bus_message_new_method_call(bus, &handle, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                     "org.freedesktop.DBus", "GetNameOwner") < 0) {
    return {};
  }
  const MessagePtr call(handle);
  const char* owner = nullptr;
  sd_bus_message_append(handle, "s", kwin);
  const int result = sd_bus_call(bus, handle, patienceMicroseconds, nullptr, &answer);
  const MessagePtr reply(answer);
  return result >= 0 && sd_bus_message_read(answer, "s", &owner) >= 0 ? owner : std::string();
}

std::filesystem::path scriptFile() {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  return std::filesystem::path(folder == nullptr ? "/tmp" : folder) /
         ("norra-kwin-" + std::to_string(getpid()) + ".js");
}

}  // namespace

class KWinWindows::Following final : public Registration {
 public:
  explicit Following(KWinWindows& windows) : windows_(windows) { windows_.begin(); }
  ~Following() override {
    windows_.changed_ = nullptr;
    windows_.unload();
    windows_.forget();
  }

 private:
  KWinWindows& windows_;
};

std::unique_ptr<KWinWindows> KWinWindows::open(sd_event* event, bool tellsPointer) {
  auto opened = openSessionBus(event, "KWin");
  auto owner = opened.bus ? ownerOnBus(opened.bus.get()) : std::string();
  if (owner.empty()) return nullptr;
  return std::unique_ptr<KWinWindows>(new KWinWindows(event, std::move(opened.bus), std::move(owner), tellsPointer));
}

KWinWindows::KWinWindows(sd_event* event, BusPtr bus, std::string owner, bool tellsPointer)
    : bus_(std::move(bus)),
      tellsPointer_(tellsPointer),
      file_(scriptFile()),
      owner_(std::move(owner)),
      nextTry_(event, [this] { load(); }) {
  static const sd_bus_vtable methods[] = {
      SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Tell", "s", "", onTold, SD_BUS_VTABLE_UNPRIVILEGED), SD_BUS_VTABLE_END};
  sd_bus_slot* slot = nullptr;
  sd_bus_add_object_vtable(bus_.get(), &slot, kwinListenerPath, kwinListenerInterface, methods, this);
  object_.reset(slot);
  slot = nullptr;
  sd_bus_add_match_async(bus_.get(), &slot, ownerRule, onOwner, nullptr, this);
  owners_.reset(slot);
}

std::unique_ptr<Registration> KWinWindows::follow(std::function<void()> changed) {
  changed_ = std::move(changed);
  return std::make_unique<Following>(*this);
}

void KWinWindows::begin() {
  triesLeft_ = maxTries;
  load();
}

// One that a service left behind that crashed goes first, which takes KWin a moment.
void KWinWindows::load() {
  const char* listener = nullptr;
  if (!changed_ || owner_.empty() || sd_bus_get_unique_name(bus_.get(), &listener) < 0) return;
  unload();
  std::ofstream(file_) << kwinScriptFor(listener, tellsPointer_);
  sd_bus_slot* slot = nullptr;
  sd_bus_call_method_async(bus_.get(), &slot, kwin, scriptingPath, scriptingInterface, "loadScript", onLoaded, this,
                           "ss", file_.c_str(), scriptName);
  loading_.reset(slot);
}

void KWinWindows::unload() {
  loading_.reset();
  std::error_code error;
  std::filesystem::remove(file_, error);
  if (owner_.empty()) return;
  sd_bus_call_method_async(bus_.get(), nullptr, kwin, scriptingPath, scriptingInterface, "unloadScript", nullptr,
                           nullptr, "s", scriptName);
  sendQueued(bus_.get(), std::chrono::milliseconds(100));
}

int KWinWindows::onLoaded(sd_bus_message* reply, void* self, sd_bus_error* /*error*/) noexcept {
  auto& windows = *static_cast<KWinWindows*>(self);
  std::int32_t script = -1;
  const auto* refusal = sd_bus_message_get_error(reply);
  if (refusal == nullptr) sd_bus_message_read(reply, "i", &script);
  if (script >= 0) {
    windows.run(script);
  } else {
    windows.tryAgain(refusal != nullptr ? describe(*refusal) : "it does not load it");
  }
  return 0;
}

void KWinWindows::tryAgain(const std::string& why) {
  if (--triesLeft_ > 0) return nextTry_.requestAfter(pauseBetweenTries);
  platformLogger().info("KWin lets no script tell of its windows: " + why);
}

// Where its object is differs between KWin 5 and 6; a call of the other place does nothing.
void KWinWindows::run(std::int32_t script) {
  for (const auto& path : {"/" + std::to_string(script), "/Scripting/Script" + std::to_string(script)}) {
    sd_bus_call_method_async(bus_.get(), nullptr, kwin, path.c_str(), "org.kde.kwin.Script", "run", nullptr, nullptr,
                             nullptr);
  }
}

void KWinWindows::setOwner(std::string owner) {
  owner_ = std::move(owner);
  forget();
  const auto changed = changed_;
  if (!changed) return;
  begin();
  changed();
}

int KWinWindows::onOwner(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) noexcept {
  const char* name = nullptr;
  const char* before = nullptr;
  const char* owner = nullptr;
  if (sd_bus_message_read(signal, "sss", &name, &before, &owner) >= 0) static_cast<KWinWindows*>(self)->setOwner(owner);
  return 0;
}

int KWinWindows::onTold(sd_bus_message* call, void* self, sd_bus_error* /*error*/) noexcept {
  return static_cast<KWinWindows*>(self)->told(call);
}

// Nobody but KWin is believed.
int KWinWindows::told(sd_bus_message* call) {
  const char* text = nullptr;
  const char* sender = sd_bus_message_get_sender(call);
  const bool isOfKWin = sender != nullptr && sender == owner_;
  if (!isOfKWin || sd_bus_message_read(call, "s", &text) < 0) {
    return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "Only KWin tells of its windows");
  }
  auto state = readKWinState(text);
  if (!state || !changed_) return sd_bus_reply_method_return(call, "");
  const auto idOf = [](const auto& window) { return window ? window->onScreen.window : 0; };
  bool isAnother = false;
  {
    const std::lock_guard lock(mutex_);
    isAnother = !state_ || idOf(state_->active) != idOf(state->active);
    state_ = std::move(state);
  }
  std::error_code error;
  std::filesystem::remove(file_, error);
  const auto changed = changed_;
  if (isAnother) changed();
  return sd_bus_reply_method_return(call, "");
}

void KWinWindows::forget() {
  const std::lock_guard lock(mutex_);
  state_.reset();
}

// What the script tells comes on the same way as the answer, before it.
void KWinWindows::whenPointerIsTold(std::function<void()> then) {
  whenAnswered_ = std::move(then);
  sd_bus_message* handle = nullptr;
  sd_bus_slot* slot = nullptr;
  const int made =
      sd_bus_message_new_method_call(bus_.get(), &handle, kwin, scriptingPath, "org.freedesktop.DBus.Peer", "Ping");
  const MessagePtr ping(handle);
  if (made >= 0) sd_bus_call_async(bus_.get(), &slot, handle, onAnswer, this, patienceMicroseconds);
  answer_.reset(slot);
  if (slot == nullptr) std::exchange(whenAnswered_, nullptr)();
}

int KWinWindows::onAnswer(sd_bus_message* /*reply*/, void* self, sd_bus_error* /*error*/) noexcept {
  const auto then = std::exchange(static_cast<KWinWindows*>(self)->whenAnswered_, nullptr);
  if (then) then();
  return 0;
}

bool KWinWindows::isTelling() {
  const std::lock_guard lock(mutex_);
  return state_.has_value();
}

std::optional<CompositorWindow> KWinWindows::activeWindow() {
  const std::lock_guard lock(mutex_);
  return state_ ? state_->active : std::nullopt;
}

std::optional<PointedWindow> KWinWindows::pointed() {
  const std::lock_guard lock(mutex_);
  return state_ ? state_->pointed : std::nullopt;
}

std::optional<CompositorWindow> KWinWindows::windowOf(ProcessIdentifier process) {
  auto active = activeWindow();
  return active && active->onScreen.process == process ? active : std::nullopt;
}

}  // namespace norra::linux_desktop
