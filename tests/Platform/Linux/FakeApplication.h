// An application on the accessibility bus as a test wants it: well-behaved, silent, or hostile.
#pragma once

#include <systemd/sd-bus.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/atspi/AtspiReference.h"
#include "Platform/Linux/atspi/AtspiRole.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

constexpr std::uint64_t bit(AtspiState state) { return std::uint64_t{1} << static_cast<unsigned>(state); }

struct FakeElement {
  AtspiRole role = AtspiRole::filler;
  std::string name = {};
  std::string description = {};
  std::uint64_t states = 0;
  std::vector<std::string> interfaces = {};  // "Text" for org.a11y.atspi.Text
  std::string parent = {};                   // a key; empty: the root
  std::vector<std::string> children = {};    // keys
  std::map<std::string, std::string> attributes = {};
  std::vector<std::pair<AtspiRelationType, std::string>> relations = {};  // type and key
  std::string text = {};
  std::string displayedText = {};
  std::vector<std::string> actions = {};
  double value = 0;
  std::array<std::int32_t, 4> extents{};  // x, y, width, height; whatever the coordinates
};

/// A connection of its own to the bus of AT_SPI_BUS_ADDRESS.
BusPtr openAccessibilityBus();

/// Served by a thread of its own from construction to destruction, on the bus of AT_SPI_BUS_ADDRESS.
class FakeApplication {
 public:
  /// Answers one call itself; negative: the usual answer is given.
  using Answer = std::function<int(sd_bus_message* call)>;

  explicit FakeApplication(std::string toolkit = "gtk", std::string version = "3.24.38");
  ~FakeApplication();
  FakeApplication(const FakeApplication&) = delete;
  FakeApplication& operator=(const FakeApplication&) = delete;

  void set(const std::string& key, FakeElement element);
  void remove(const std::string& key);
  AtspiReference reference(const std::string& key) const;
  /// What every path is that is not set; nothing is there otherwise.
  void setElsewhere(FakeElement element);

  /// Answers calls of this method, or of this property's Get, in its own way.
  void answer(const std::string& member, Answer answer);
  /// With the same every time: what D-Bus calls these types.
  template <typename... Arguments>
  void answerWith(const std::string& member, const char* types, Arguments... arguments) {
    answer(member, [=](sd_bus_message* call) { return sd_bus_reply_method_return(call, types, arguments...); });
  }
  void answerWithElement(const std::string& member, const std::string& key) {
    answer(member, [=, this](sd_bus_message* call) { return replyReference(call, key); });
  }
  /// Runs at each call before it is answered, on the application's thread.
  void atEachCall(std::function<void(const std::string& member)> action);
  /// Calls that come from now on are kept, and answered only when it is no longer silent.
  void setSilent(bool silent) { isSilent_ = silent; }
  /// How often a method was called, or a property read.
  int calls(const std::string& member) const;
  int calls() const;
  /// Those that were not answered included.
  int received() const { return received_; }

  /// Sends an event of org.a11y.atspi.Event.Object.
  void sendEvent(const std::string& key, const char* member, const char* detail, int detail1);

 private:
  void serve();
  void answerKept();
  int handle(sd_bus_message* call);
  int reply(sd_bus_message* call, const std::string& member);
  int replyProperty(sd_bus_message* call, const std::string& property);
  int replyMethod(sd_bus_message* call, const std::string& member);
  int replyReference(sd_bus_message* call, const std::string& key);
  std::vector<std::string> fieldsBelow(const FakeElement& element) const;
  FakeElement elementOf(sd_bus_message* call) const;
  bool isKnown(sd_bus_message* call) const;
  std::string pathOf(const std::string& key) const;
  static int onMessage(sd_bus_message* message, void* self, sd_bus_error* error);

  const std::string toolkit_;
  const std::string version_;
  BusPtr bus_;
  std::string name_;

  mutable std::mutex mutex_;
  // guarded by mutex_
  std::map<std::string, FakeElement> elements_;
  std::optional<FakeElement> elsewhere_;
  std::map<std::string, Answer> answers_;
  std::function<void(const std::string& member)> atEachCall_ = [](const std::string&) {};
  std::map<std::string, int> calls_;
  std::vector<std::function<void()>> outgoing_;

  std::atomic<int> received_ = 0;
  std::atomic<bool> isSilent_ = false;
  std::atomic<bool> isEnding_ = false;
  std::vector<MessagePtr> kept_;  // of the thread
  std::thread thread_;
};

}  // namespace norra::linux_desktop
