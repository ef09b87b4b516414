// The events of applications, as far as somebody listens.
//
// To listen to an event takes two things: a match on the bus, so that it is delivered here, and a word to the registry,
// so that applications send it at all. Applications cost themselves time for each event that anybody wants, so both
// last only as long as there is a subscriber, and ask for no more than is needed: of one element, where one is
// followed.
//
// What an event says about contents is never read, since it may be a secret. An event says that something happened;
// what is there now is asked, under the rules for elements. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>

#include "Platform/Linux/atspi/AtspiConnection.h"
#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/runtime/EventSource.h"
#include "Platform/Registration.h"

namespace norra::linux_desktop {

/// An event without what it says about contents, which is never read: it may be a secret.
struct AtspiEvent {
  AtspiReference source;
  std::string detail;
  /// 1 for a state that was gained, 0 for one that was lost.
  std::int32_t detail1 = 0;
};

/// Which events are wanted.
struct AtspiEventKind {
  /// As the registry calls them, "object:state-changed:focused".
  std::string registryName;
  /// As they are sent: member of org.a11y.atspi.Event.Object and, unless empty, first argument.
  std::string member;
  std::string detail;
  /// Unless empty, from whom only.
  AtspiReference source;
};

using AtspiEventHandler = std::function<void(const AtspiEvent& event)>;

class AtspiEvents {
 public:
  /// `event` and `shared` must outlive this. `nameLeft` is told each name that leaves the bus.
  AtspiEvents(sd_event* event, AtspiShared& shared, std::function<void(const std::string& busName)> nameLeft);
  ~AtspiEvents();
  AtspiEvents(const AtspiEvents&) = delete;
  AtspiEvents& operator=(const AtspiEvents&) = delete;

  /// Until the result, which must not outlive this, is let go. Applications send the events only as long as somebody
  /// wants them. Goes on when the bus was lost and is there again.
  [[nodiscard]] std::unique_ptr<Registration> subscribe(AtspiEventKind kind, AtspiEventHandler handler);

  /// Calls the handler for every name that comes onto the bus while there are subscriptions, until the result, which
  /// must not outlive this, is let go. One at a time.
  [[nodiscard]] std::unique_ptr<Registration> onNewName(std::function<void()> handler);

  /// The loop that serves this.
  sd_event* loop() const { return event_; }

 private:
  struct Subscription;
  class Handle;
  class NewNameHandle;

  void connect();
  void reconnectLater();
  void listen(Subscription& subscription);
  void watchBus();
  void remindApplications();
  SlotPtr match(const char* rule, sd_bus_message_handler_t handler);
  void wantAtRegistry(const std::string& registryName);
  void unwantAtRegistry(const std::string& registryName);
  void end(std::list<Subscription>::iterator subscription);

  static int onEvent(sd_bus_message* message, void* subscription, sd_bus_error* error) noexcept;
  static int onRegistryChange(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
  static int onNameChange(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
  static int onDisconnect(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
  static int onTimeToConnect(sd_event_source* source, std::uint64_t time, void* self) noexcept;

  sd_event* const event_;
  AtspiShared& shared_;
  const std::function<void(const std::string&)> nameLeft_;
  std::function<void()> newName_;
  BusPtr bus_;
  DeferredRun reminder_;
  SlotPtr nameChanges_;
  SlotPtr registryChanges_;
  SlotPtr disconnection_;
  EventSourcePtr reconnection_;
  std::list<Subscription> subscriptions_;
  std::map<std::string, int> wanted_;  // subscriptions by registry name
};

}  // namespace norra::linux_desktop
