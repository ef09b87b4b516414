#include "tests/Platform/Linux/HostileFaults.h"

#include <chrono>
#include <limits>
#include <string_view>

#include "Platform/Linux/atspi/AtspiRole.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;
using std::chrono_literals::operator""ms;

constexpr int eventsAMillisecond = 50;
constexpr std::size_t hugeText = std::size_t{64} << 20;
constexpr int manyChildren = 1'000'000;
constexpr auto lowest = std::numeric_limits<std::int32_t>::min();

void answerAll(FakeApplication& application, const FakeApplication::Answer& answer) {
  for (const auto* method : {"GetRole", "GetState", "GetInterfaces", "GetAttributes", "GetRelationSet", "GetChildren",
                             "GetIndexInParent", "GetLocalizedRoleName", "GetChildAtIndex", "GetExtents", "GetName",
                             "GetText", "GetAccessibleAtPoint", "GetStringAtOffset"}) {
    application.answer(method, answer);
  }
  for (const auto* property :
       {"Name", "ToolkitName", "Version", "Description", "Parent", "ChildCount", "CharacterCount", "NActions",
        "CurrentValue", "AccessibleId", "HelpText", "NColumns", "NSelectedChildren"}) {
    application.answer(property, answer);
  }
}

int neverAnswer(sd_bus_message* /*call*/) { return 0; }

/// Sends as fast as it is asked to, from a thread and a connection of its own.
class Flood {
 public:
  using Send = std::function<void(sd_bus* bus, int number)>;

  Flood(bool answers, Send send) : answers_(answers), send_(std::move(send)), thread_([this] { run(); }) {}
  ~Flood() {
    isEnding_ = true;
    thread_.join();
  }
  Flood(const Flood&) = delete;
  Flood& operator=(const Flood&) = delete;

 private:
  void run() {
    const auto bus = openAccessibilityBus();
    auto next = steady_clock::now();
    for (int sent = 0; !isEnding_; next += 1ms) {
      for (const int end = sent + eventsAMillisecond; sent < end; ++sent) send_(bus.get(), sent);
      sd_bus_flush(bus.get());
      while (answers_ && sd_bus_process(bus.get(), nullptr) > 0) {
      }
      std::this_thread::sleep_until(next);
    }
  }

  const bool answers_;
  const Send send_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

// Each tells of another element.
void sendFocusEvent(sd_bus* bus, int number) {
  const auto path = "/org/a11y/atspi/accessible/" + std::to_string(number);
  sd_bus_emit_signal(bus, path.c_str(), "org.a11y.atspi.Event.Object", "StateChanged", "siiva{sv}", "focused", 1, 0,
                     "i", 0, 0);
}

std::shared_ptr<void> isSilent(FakeApplication& application) {
  application.setSilent(true);
  return nullptr;
}

std::shared_ptr<void> answersHalf(FakeApplication& application) {
  for (const auto* member : {"GetState", "GetInterfaces", "Description", "GetExtents"}) {
    application.answer(member, neverAnswer);
  }
  return nullptr;
}

std::shared_ptr<void> answersWithWrongTypes(FakeApplication& application) {
  answerAll(application, [](auto* call) { return sd_bus_reply_method_return(call, "s", "not what was asked for"); });
  return nullptr;
}

std::shared_ptr<void> hasAParentCircle(FakeApplication& application) {
  application.set("root", {.role = AtspiRole::application, .parent = "frame", .children = {"frame"}});
  application.set("reef", {.role = AtspiRole::panel, .parent = "other"});
  application.set("other", {.role = AtspiRole::panel, .parent = "reef"});
  return nullptr;
}

std::shared_ptr<void> hasEndlessParents(FakeApplication& application) {
  application.set("reef", {.role = AtspiRole::panel});
  application.setElsewhere({.role = AtspiRole::panel});
  application.answer("Parent", [&application, count = std::make_shared<int>()](auto* call) {
    const auto parent = application.reference("above" + std::to_string(++*count));
    return sd_bus_reply_method_return(call, "v", "(so)", parent.busName.c_str(), parent.path.c_str());
  });
  return nullptr;
}

std::shared_ptr<void> hasHugeTexts(FakeApplication& application) {
  const auto text = std::make_shared<const std::string>(hugeText, 'x');
  for (const auto* property : {"Name", "Description", "AccessibleId", "HelpText"}) {
    application.answer(property,
                       [text](auto* call) { return sd_bus_reply_method_return(call, "v", "s", text->c_str()); });
  }
  application.answer("GetLocalizedRoleName",
                     [text](auto* call) { return sd_bus_reply_method_return(call, "s", text->c_str()); });
  return nullptr;
}

bool isToTheReef(sd_bus_message* call) { return std::string_view(sd_bus_message_get_path(call)).ends_with("/reef"); }

int replyManyReferences(sd_bus_message* call) {
  if (!isToTheReef(call)) return -1;
  sd_bus_message* handle = nullptr;
  sd_bus_message_new_method_return(call, &handle);
  const MessagePtr reply(handle);
  sd_bus_message_open_container(handle, 'a', "(so)");
  for (int i = 0; i < manyChildren; ++i) {
    sd_bus_message_append(handle, "(so)", "", "/org/a11y/atspi/accessible/reef");
  }
  sd_bus_message_close_container(handle);
  return sd_bus_send(nullptr, handle, nullptr);
}

std::shared_ptr<void> hasAMillionChildren(FakeApplication& application) {
  application.answer("ChildCount", [](auto* call) {
    return isToTheReef(call) ? sd_bus_reply_method_return(call, "v", "i", manyChildren) : -1;
  });
  application.answer("GetChildAtIndex", [](auto* call) {
    return sd_bus_reply_method_return(call, "(so)", sd_bus_message_get_destination(call),
                                      sd_bus_message_get_path(call));
  });
  application.answer("GetChildren", replyManyReferences);
  return nullptr;
}

std::shared_ptr<void> hasNegativeNumbers(FakeApplication& application) {
  for (const auto* property : {"ChildCount", "CharacterCount", "NActions", "NColumns", "NSelectedChildren"}) {
    application.answerWith(property, "v", "i", lowest);
  }
  application.answerWith("GetIndexInParent", "i", lowest);
  application.answerWith("GetExtents", "(iiii)", lowest, lowest, lowest, lowest);
  return nullptr;
}

std::shared_ptr<void> pointsToOthers(FakeApplication& application) {
  application.answerWith("GetAccessibleAtPoint", "(so)", "org.freedesktop.DBus", "/org/freedesktop/DBus");
  application.answerWith("Parent", "v", "(so)", "not a name", AtspiReference::rootPath);
  application.answer("GetChildren", [](auto* call) {  // the reader itself
    return sd_bus_reply_method_return(call, "a(so)", 1, sd_bus_message_get_sender(call), AtspiReference::rootPath);
  });
  return nullptr;
}

std::shared_ptr<void> floodsWithEvents(FakeApplication& /*application*/) {
  return std::make_shared<Flood>(true, sendFocusEvent);
}

std::shared_ptr<void> floodsWithEventsAndIsSilent(FakeApplication& application) {
  application.setSilent(true);
  return std::make_shared<Flood>(false, sendFocusEvent);
}

// Whoever asks gets no answer, but no rest either.
std::shared_ptr<void> floodsWhoeverAsks(FakeApplication& application) {
  struct Asker {
    std::mutex mutex;
    std::string name;
  };
  const auto asker = std::make_shared<Asker>();
  answerAll(application, [asker](auto* call) {
    const std::lock_guard lock(asker->mutex);
    asker->name = sd_bus_message_get_sender(call);
    return 0;
  });
  return std::make_shared<Flood>(true, [asker](sd_bus* bus, int /*number*/) {
    const std::lock_guard lock(asker->mutex);
    if (asker->name.empty()) return;
    sd_bus_message* handle = nullptr;
    sd_bus_message_new_signal(bus, &handle, "/", "org.a11y.atspi.Event.Object", "StateChanged");
    const MessagePtr signal(handle);
    sd_bus_message_set_destination(handle, asker->name.c_str());
    sd_bus_send(bus, handle, nullptr);
  });
}

constexpr std::array faults{
    HostileFault{"is silent", isSilent},
    HostileFault{"answers half", answersHalf},
    HostileFault{"answers with wrong types", answersWithWrongTypes},
    HostileFault{"has a parent circle", hasAParentCircle},
    HostileFault{"has endless parents", hasEndlessParents},
    HostileFault{"has huge texts", hasHugeTexts},
    HostileFault{"has a million children", hasAMillionChildren},
    HostileFault{"has negative numbers", hasNegativeNumbers},
    HostileFault{"points to others", pointsToOthers},
    HostileFault{"floods with events", floodsWithEvents},
    HostileFault{"floods with events and is silent", floodsWithEventsAndIsSilent},
    HostileFault{"floods whoever asks", floodsWhoeverAsks},
};

}  // namespace

void showReef(FakeApplication& application) {
  constexpr std::array<std::int32_t, 4> place{0, 0, 1280, 900};
  constexpr auto shown = bit(AtspiState::visible) | bit(AtspiState::showing);
  application.set("root", {.role = AtspiRole::application, .name = "reef", .children = {"frame"}});
  application.set("frame", {.role = AtspiRole::frame,
                            .states = shown | bit(AtspiState::active),
                            .interfaces = {"Component"},
                            .children = {"reef"},
                            .extents = place});
  application.set("reef", {.role = AtspiRole::pushButton,
                           .name = "Reef",
                           .states = shown,
                           .interfaces = {"Action", "Component"},
                           .parent = "frame",
                           .actions = {"click"},
                           .extents = place});
}

std::span<const HostileFault> hostileFaults() { return faults; }

}  // namespace norra::linux_desktop
