// The calls of one client.
#pragma once

#include <deque>
#include <memory>

#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/service/BusConnection.h"

namespace norra::linux_desktop {

/// Answers the calls of one client through its connection's exported object, one at a time, in their order. Before a
/// start is answered the client is asked what it exports, for a bounded time: a client that says that it has no usable
/// object is remembered as such; one that says nothing, since it waits for the very answer, gets the benefit of the
/// doubt. Main thread.
class ClientCalls {
 public:
  ClientCalls(sd_bus* bus, std::shared_ptr<BusConnection> connection);
  ClientCalls(const ClientCalls&) = delete;
  ClientCalls& operator=(const ClientCalls&) = delete;

  BusConnection& connection() { return *connection_; }

  /// Answers the call now or when the earlier ones have been. Gives a negative errno where too many wait.
  int add(sd_bus_message* call);

 private:
  void answerWaiting();
  void answerFirst();
  bool isClientObjectLookedAt();
  static int onIntrospection(sd_bus_message* answer, void* calls, sd_bus_error* error) noexcept;

  sd_bus* bus_;
  std::shared_ptr<BusConnection> connection_;
  std::deque<MessagePtr> waiting_;
  SlotPtr introspection_;  // present while it is awaited
  bool isFirstLookedAt_ = false;
};

}  // namespace norra::linux_desktop
