#include "Platform/Linux/atspi/AtspiEvents.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/atspi/AtspiMessage.h"

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t pauseBeforeReconnectingMicroseconds = 1'000'000;
constexpr std::uint64_t accuracyMicroseconds = 100'000;

// Of no use to anybody here.
constexpr const char* rareEvent = "object:state-changed:defunct";

constexpr const char* nameChangesRule =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged'";
// From when it is on the bus until it hears that an event is wanted.
constexpr std::uint64_t applicationStartsMicroseconds = 100'000;
constexpr const char* registryChangesRule =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg0='org.a11y.atspi.Registry'";

std::string ruleFor(const AtspiEventKind& kind) {
  auto rule = "type='signal',interface='org.a11y.atspi.Event.Object',member='" + kind.member + "'";
  if (!kind.detail.empty()) rule += ",arg0='" + kind.detail + "'";
  if (!kind.source.busName.empty()) rule += ",sender='" + kind.source.busName + "'";
  if (!kind.source.path.empty()) rule += ",path='" + kind.source.path + "'";
  return rule;
}

// Bodies begin alike in all toolkits: a text and two integers.
std::optional<AtspiEvent> eventIn(sd_bus_message* message) {
  const char* sender = sd_bus_message_get_sender(message);
  const char* path = sd_bus_message_get_path(message);
  auto detail = readText(message);
  const auto detail1 = readInteger(message);
  if (!sender || !path || !detail || !detail1) return std::nullopt;
  return AtspiEvent{{sender, path}, std::move(*detail), static_cast<std::int32_t>(*detail1)};
}

}  // namespace

struct AtspiEvents::Subscription {
  AtspiEvents& events;
  AtspiEventKind kind;
  AtspiEventHandler handler;
  SlotPtr match;
};

class AtspiEvents::Handle final : public Registration {
 public:
  Handle(AtspiEvents& events, std::list<Subscription>::iterator subscription)
      : events_(events), subscription_(subscription) {}
  ~Handle() override { events_.end(subscription_); }

 private:
  AtspiEvents& events_;
  const std::list<Subscription>::iterator subscription_;
};

class AtspiEvents::NewNameHandle final : public Registration {
 public:
  explicit NewNameHandle(AtspiEvents& events) : events_(events) {}
  ~NewNameHandle() override { events_.newName_ = nullptr; }

 private:
  AtspiEvents& events_;
};

AtspiEvents::AtspiEvents(sd_event* event, AtspiShared& shared, std::function<void(const std::string&)> nameLeft)
    : event_(event),
      shared_(shared),
      nameLeft_(std::move(nameLeft)),
      reminder_(event, [this] { remindApplications(); }) {}

AtspiEvents::~AtspiEvents() = default;

std::unique_ptr<Registration> AtspiEvents::subscribe(AtspiEventKind kind, AtspiEventHandler handler) {
  if (!bus_) connect();
  subscriptions_.push_back({*this, std::move(kind), std::move(handler), nullptr});
  const auto added = std::prev(subscriptions_.end());
  listen(*added);
  if (wanted_[added->kind.registryName]++ == 0) wantAtRegistry(added->kind.registryName);
  return std::make_unique<Handle>(*this, added);
}

std::unique_ptr<Registration> AtspiEvents::onNewName(std::function<void()> handler) {
  newName_ = std::move(handler);
  return std::make_unique<NewNameHandle>(*this);
}

// Applications of Qt ask which events are wanted when they start, and hear of later ones only after that. What was
// wanted in between they learn when they ask anew.
void AtspiEvents::remindApplications() {
  if (wanted_.empty()) return;
  wantAtRegistry(rareEvent);
  unwantAtRegistry(rareEvent);
}

void AtspiEvents::end(std::list<Subscription>::iterator subscription) {
  const auto name = subscription->kind.registryName;
  subscriptions_.erase(subscription);
  if (--wanted_[name] > 0) return;
  wanted_.erase(name);
  unwantAtRegistry(name);
}

void AtspiEvents::connect() {
  reconnection_.reset();
  bus_ = shared_.bus.connect();
  if (!bus_ || sd_bus_attach_event(bus_.get(), event_, SD_EVENT_PRIORITY_NORMAL) < 0) return reconnectLater();
  watchBus();
  reminder_.requestAfter(applicationStartsMicroseconds);
  for (auto& subscription : subscriptions_) listen(subscription);
  for (const auto& [name, count] : wanted_) wantAtRegistry(name);
}

void AtspiEvents::reconnectLater() {
  nameChanges_.reset();
  registryChanges_.reset();
  disconnection_.reset();
  bus_.reset();
  sd_event_source* timer = nullptr;
  require(sd_event_add_time_relative(event_, &timer, CLOCK_MONOTONIC, pauseBeforeReconnectingMicroseconds,
                                     accuracyMicroseconds, onTimeToConnect, this),
          "sd_event_add_time_relative");
  reconnection_.reset(timer);
}

void AtspiEvents::watchBus() {
  nameChanges_ = match(nameChangesRule, onNameChange);
  registryChanges_ = match(registryChangesRule, onRegistryChange);
  disconnection_ = match(disconnectionMatch, onDisconnect);
}

SlotPtr AtspiEvents::match(const char* rule, sd_bus_message_handler_t handler) {
  sd_bus_slot* slot = nullptr;
  sd_bus_add_match_async(bus_.get(), &slot, rule, handler, nullptr, this);
  return SlotPtr(slot);
}

void AtspiEvents::listen(Subscription& subscription) {
  if (!bus_) return;
  sd_bus_slot* slot = nullptr;
  sd_bus_add_match_async(bus_.get(), &slot, ruleFor(subscription.kind).c_str(), onEvent, nullptr, &subscription);
  subscription.match.reset(slot);
}

void AtspiEvents::wantAtRegistry(const std::string& registryName) {
  if (!bus_) return;
  sd_bus_message* handle = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &handle, "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                     "org.a11y.atspi.Registry", "RegisterEvent") < 0) {
    return;
  }
  const MessagePtr message(handle);
  if (sd_bus_message_append(handle, "sass", registryName.c_str(), 0, "") >= 0) {
    sd_bus_call_async(bus_.get(), nullptr, handle, nullptr, nullptr, 0);
  }
}

void AtspiEvents::unwantAtRegistry(const std::string& registryName) {
  if (!bus_) return;
  sd_bus_call_method_async(bus_.get(), nullptr, "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                           "org.a11y.atspi.Registry", "DeregisterEvent", nullptr, nullptr, "s", registryName.c_str());
}

int AtspiEvents::onEvent(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  const auto& subscription = *static_cast<Subscription*>(self);
  if (const auto event = eventIn(message)) {
    subscription.events.shared_.resting.sentEvent(event->source.busName, std::chrono::steady_clock::now());
    // The handler may end the subscription, and with it itself.
    const auto handler = subscription.handler;
    handler(*event);
  }
  return 0;
}

int AtspiEvents::onNameChange(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  auto& events = *static_cast<AtspiEvents*>(self);
  const auto name = readText(message);
  readText(message);
  const auto owner = readText(message);
  if (!name || !owner) return 0;
  if (owner->empty()) {
    events.nameLeft_(*name);
  } else {
    events.reminder_.requestAfter(applicationStartsMicroseconds);
    if (events.newName_) events.newName_();
  }
  return 0;
}

// A registry that was started anew does not know what is wanted.
int AtspiEvents::onRegistryChange(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  auto& events = *static_cast<AtspiEvents*>(self);
  readText(message);
  readText(message);
  const auto owner = readText(message);
  if (!owner || owner->empty()) return 0;
  for (const auto& [name, count] : events.wanted_) events.wantAtRegistry(name);
  return 0;
}

int AtspiEvents::onDisconnect(sd_bus_message* /*message*/, void* self, sd_bus_error* /*error*/) noexcept {
  auto& events = *static_cast<AtspiEvents*>(self);
  for (auto& subscription : events.subscriptions_) subscription.match.reset();
  events.reconnectLater();
  return 0;
}

int AtspiEvents::onTimeToConnect(sd_event_source* /*source*/, std::uint64_t /*time*/, void* self) noexcept {
  static_cast<AtspiEvents*>(self)->connect();
  return 0;
}

}  // namespace norra::linux_desktop
