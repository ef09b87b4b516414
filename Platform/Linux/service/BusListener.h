// The service on the session bus: each caller is a connection.
//
// There is no connecting and disconnecting on a bus. A program that calls the service is a client from its first call
// on, known by the name that the bus gave it, and gone when the bus says that the name has left; a client that crashes
// is noticed like one that ends.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "Platform/Connection.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "Platform/Linux/service/ClientCalls.h"

namespace norra::linux_desktop {

/// A caller's first call makes its connection, and its loss of its name on the bus invalidates it. Losing the bus
/// interrupts every connection and ends the loop. Main thread.
class BusListener final : public NSXPCListener {
 public:
  struct Opened {
    std::unique_ptr<BusListener> listener;  // null where the service cannot be offered
    std::string problem;                    // then: why, and what to do
  };
  /// Takes the service's name on the session bus; calls are answered from activate() on. `loop` outlives the listener.
  static Opened open(EventLoop& loop);
  ~BusListener() override;
  BusListener(const BusListener&) = delete;
  BusListener& operator=(const BusListener&) = delete;

  void setDelegate(NSXPCListenerDelegate* delegate) override { delegate_ = delegate; }
  std::optional<int> activate() override;

  sd_bus* bus() const { return bus_.get(); }
  const DeliveryCounts& counts() const { return counts_; }

  /// Called after each change of the number of connections, with the number.
  void setConnectionCountHandler(std::function<void(std::size_t)> handler) {
    connectionCountChanged_ = std::move(handler);
  }

  /// Sends every message to a client on its way, for a bounded time; no call is answered meanwhile or after. Ends the
  /// loop with the status.
  void end(int status);

  /// Gives the name back and ends the loop, unless a call came in meanwhile: then it takes the name again.
  void endIfUnused();

 private:
  struct Client {
    Client(BusListener& owner, std::string uniqueName, std::shared_ptr<BusConnection> connection);
    ~Client() { calls.connection().letGo(); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    BusListener& listener;
    const std::string name;
    ClientCalls calls;
    TrackPtr presence;
  };

  BusListener(EventLoop& loop, BusPtr bus) : loop_(loop), bus_(std::move(bus)) {}

  int exportService();
  int requestName();
  /// Null where the delegate refuses it or it is gone already.
  Client* clientNamed(const char* name);
  Client* accept(const char* name);
  bool watchPresence(Client& client);
  void remove(const std::string& name);
  void interruptAll();
  static int onCall(sd_bus_message* call, void* listener, sd_bus_error* error) noexcept;
  static int onVanished(sd_bus_track* presence, void* client) noexcept;
  static int onDisconnected(sd_bus_message* signal, void* listener, sd_bus_error* error) noexcept;
  static const sd_bus_vtable methods[];

  EventLoop& loop_;
  DeliveryCounts counts_;
  BusPtr bus_;
  SlotPtr object_;
  SlotPtr disconnection_;
  NSXPCListenerDelegate* delegate_ = nullptr;
  std::function<void(std::size_t)> connectionCountChanged_ = [](std::size_t) {};
  std::map<std::string, std::unique_ptr<Client>, std::less<>> clients_;
  bool hasEnded_ = false;
};

}  // namespace norra::linux_desktop
