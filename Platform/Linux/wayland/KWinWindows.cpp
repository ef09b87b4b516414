#include "Platform/Linux/wayland/KWinWindows.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <utility>

#include "Platform/Linux/runtime/PlatformLogger.h"
#include "Platform/Linux/wayland/KWinScript.h"

namespace norra::linux_desktop {
namespace {

constexpr const char* kwin = "org.kde.KWin";
constexpr const char* scriptingPath = "/Scripting";
constexpr const char* scriptingInterface = "org.kde.kwin.Scripting";
constexpr const char* scriptName = "norra-collector";
constexpr int maxTries = 5;
constexpr std::uint64_t pauseBetweenTries = 100'000;  // microseconds

std::filesystem::path scriptFile() {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  return std::filesystem::path(folder == nullptr ? "/tmp" : folder) /
         ("norra-kwin-" + std::to_string(getpid()) + ".js");
}

}  // namespace

std::unique_ptr<KWinWindows> KWinWindows::open(sd_event* event, bool tellsPointer) {
  auto opened = openSessionBus(event, "KWin");
  auto owner = opened.bus ? ownerOnBus(opened.bus.get(), kwin) : std::string();
  if (owner.empty()) return nullptr;
  return std::unique_ptr<KWinWindows>(new KWinWindows(event, std::move(opened.bus), std::move(owner), tellsPointer));
}

KWinWindows::KWinWindows(sd_event* event, BusPtr bus, std::string owner, bool tellsPointer)
    : ToldCompositor(std::move(bus), kwin, std::move(owner)),
      tellsPointer_(tellsPointer),
      file_(scriptFile()),
      nextTry_(event, [this] { load(); }) {}

void KWinWindows::begin() {
  triesLeft_ = maxTries;
  load();
}

// One that a service left behind that crashed goes first, which takes KWin a moment.
void KWinWindows::load() {
  const char* listener = nullptr;
  if (!isFollowed() || !isOnBus() || sd_bus_get_unique_name(bus(), &listener) < 0) return;
  unload();
  std::ofstream(file_) << kwinScriptFor(listener, tellsPointer_);
  sd_bus_slot* slot = nullptr;
  sd_bus_call_method_async(bus(), &slot, kwin, scriptingPath, scriptingInterface, "loadScript", onLoaded, this, "ss",
                           file_.c_str(), scriptName);
  loading_.reset(slot);
}

void KWinWindows::unload() {
  loading_.reset();
  std::error_code error;
  std::filesystem::remove(file_, error);
  if (!isOnBus()) return;
  sd_bus_call_method_async(bus(), nullptr, kwin, scriptingPath, scriptingInterface, "unloadScript", nullptr, nullptr,
                           "s", scriptName);
  sendQueued(bus(), std::chrono::milliseconds(100));
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
    sd_bus_call_method_async(bus(), nullptr, kwin, path.c_str(), "org.kde.kwin.Script", "run", nullptr, nullptr,
                             nullptr);
  }
}

void KWinWindows::didTell(const CompositorState& /*state*/, const std::vector<std::uint16_t>& /*buttonsBefore*/) {
  std::error_code error;
  std::filesystem::remove(file_, error);
}

}  // namespace norra::linux_desktop
