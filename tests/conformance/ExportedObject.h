// What a service exports to its clients in a test, and whom it accepts.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Connection.h"

namespace norra::conformance {

/// Answers with the number of its connection, and takes the client's proxy when it is started.
class ExportedObject final : public ServiceProtocol {
 public:
  ExportedObject(std::shared_ptr<NSXPCConnection> connection, std::size_t number)
      : connection_(std::move(connection)), number_(std::to_string(number)) {}

  void startCollectorWith(const ServiceReply& reply) override {
    client = connection_->remoteObjectProxy([errors = errors](const std::string& error) { errors->push_back(error); });
    reply(client ? "started " + number_ : "not usable");
  }
  void stopCollectorWith(const ServiceReply& reply) override { reply("stopped " + number_); }
  void pauseCollectorWith(const ServiceReply& reply) override { reply("paused " + number_); }
  void resumeCollectorWith(const ServiceReply& reply) override { reply("resumed " + number_); }

  std::shared_ptr<ClientProtocol> client;
  const std::shared_ptr<std::vector<std::string>> errors = std::make_shared<std::vector<std::string>>();

 private:
  std::shared_ptr<NSXPCConnection> connection_;
  std::string number_;
};

/// Keeps no connection and no exported object alive.
class AcceptingDelegate : public NSXPCListenerDelegate {
 public:
  bool shouldAcceptNewConnection(std::shared_ptr<NSXPCConnection> connection) override {
    const auto object = std::make_shared<ExportedObject>(connection, objects.size() + 1);
    objects.push_back(object);
    connection->setExportedObject(object);
    connection->setInvalidationHandler([this, number = objects.size()] { invalidated.push_back(number); });
    connection->setInterruptionHandler([this, number = objects.size()] { interrupted.push_back(number); });
    if (accepts) connection->activate();
    return accepts;
  }

  bool accepts = true;
  std::vector<std::weak_ptr<ExportedObject>> objects;
  std::vector<std::size_t> invalidated;
  std::vector<std::size_t> interrupted;
};

}  // namespace norra::conformance
