// Connections of clients, transactions, and the life of the service process.
//
// A client is a program that wants to be told what the person does. It finds the service by name, each client gets a
// connection of its own, and over it each side calls the object that the other one exports. While a client collects, a
// transaction is open, and the platform leaves the process alone; when none is, it may end it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "NorraUserInteractionsCollectorServiceProtocol/ClientProtocol.h"
#include "NorraUserInteractionsCollectorServiceProtocol/ServiceProtocol.h"

namespace norra {

/// One client's connection. All operations on the thread on which the listener hands it out, the proxy excepted.
class NSXPCConnection {
 public:
  virtual ~NSXPCConnection() = default;

  /// The object that answers the client's calls. Held until the connection is invalidated.
  virtual void setExportedObject(std::shared_ptr<ServiceProtocol> object) = 0;
  /// Called once when the client has gone for good; then both handlers and the exported object are let go.
  virtual void setInvalidationHandler(std::function<void()> handler) = 0;
  /// Called when the way to the client broke.
  virtual void setInterruptionHandler(std::function<void()> handler) = 0;
  /// Begins delivering the client's calls.
  virtual void activate() = 0;

  /// The client's exported object; null when it cannot serve as a ClientProtocol. The proxy may outlive the connection.
  /// A message that cannot be delivered is lost after `errorHandler` was told why, on any thread.
  virtual std::shared_ptr<ClientProtocol> remoteObjectProxy(
      std::function<void(const std::string& description)> errorHandler) = 0;
};

class NSXPCListenerDelegate {
 public:
  virtual ~NSXPCListenerDelegate() = default;
  /// Wires a new connection. False refuses it; then what it was wired with is let go.
  virtual bool shouldAcceptNewConnection(std::shared_ptr<NSXPCConnection> connection) = 0;
};

class NSXPCListener {
 public:
  virtual ~NSXPCListener() = default;
  /// Not owned; must outlive activate().
  virtual void setDelegate(NSXPCListenerDelegate* delegate) = 0;
  /// Runs the service loop on the calling thread, which is the main thread, until the process is to end, and lets go
  /// of all connections before it returns. Gives the status that exit() was called with; nothing when the loop ended
  /// by itself.
  virtual std::optional<int> activate() = 0;
};

/// The service process as its platform sees it. Any thread.
class ProcessServices {
 public:
  virtual ~ProcessServices() = default;

  /// Allows the platform to end the process while no transaction is open.
  virtual void setAutomaticTerminationSupportEnabled(bool enabled) = 0;
  virtual void beginTransaction() = 0;
  virtual void endTransaction() = 0;

  /// Ends the process with this status once every message to a client has been delivered; no job runs after.
  virtual void exit(int status) = 0;
};

}  // namespace norra
