// Client programs and their connections to the service.
//
// A client is a name. When it connects again, the name means the new connection, and the old one stays where it is
// until it is let go, as with a program that was started twice.
#pragma once

#include <map>
#include <vector>

#include "Platform/Connection.h"

namespace norra::simulated {

enum class ServiceOperation { start, stop, pause, resume };

class Clients final : public NSXPCListener {
 public:
  /// What the service loop does; it must let no connection outlive it.
  using Loop = std::function<std::optional<int>()>;

  void setLoop(Loop loop) { loop_ = std::move(loop); }

  void setDelegate(NSXPCListenerDelegate* delegate) override { delegate_ = delegate; }
  std::optional<int> activate() override;

  /// Offers the service a connection of a new client of this name; from now on the name means this client. `exported`
  /// is what the client exports; null: nothing that would serve.
  void connect(const std::string& name, std::shared_ptr<ClientProtocol> exported);
  bool isConnected(const std::string& name) const { return newest_.contains(name); }

  /// Without effect, and without a reply, where no client of this name is connected or the service exports nothing to
  /// it.
  void call(const std::string& name, ServiceOperation operation, const ServiceReply& reply) const;

  /// Nothing happens where no client of this name is connected.
  void disconnect(const std::string& name);
  void interrupt(const std::string& name) const;

  /// Lets go of every connection without a word.
  void dropConnections();

 private:
  class Connection;

  Loop loop_;
  NSXPCListenerDelegate* delegate_ = nullptr;
  std::vector<std::shared_ptr<Connection>> connections_;
  std::map<std::string, std::shared_ptr<Connection>> newest_;  // of each name
};

}  // namespace norra::simulated
