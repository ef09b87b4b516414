#include "Platform/Simulated/Clients.h"

#include <utility>

namespace norra::simulated {
namespace {

/// The client's end of the line, which outlives the connection in the hands of those who hold a proxy.
struct ClientEnd {
  std::shared_ptr<ClientProtocol> exported;
  bool isConnected = true;
};

class Proxy final : public ClientProtocol {
 public:
  Proxy(std::shared_ptr<const ClientEnd> end, std::function<void(const std::string&)> errorHandler)
      : end_(std::move(end)), errorHandler_(std::move(errorHandler)) {}

  void addEvent(std::string event, std::chrono::system_clock::time_point date, bool isApplicationEvent) override {
    if (end_->isConnected) {
      end_->exported->addEvent(std::move(event), date, isApplicationEvent);
    } else {
      errorHandler_("connection invalidated");
    }
  }

 private:
  std::shared_ptr<const ClientEnd> end_;
  std::function<void(const std::string&)> errorHandler_;
};

}  // namespace

class Clients::Connection final : public NSXPCConnection {
 public:
  explicit Connection(std::shared_ptr<ClientProtocol> exported)
      : end_(std::make_shared<ClientEnd>(ClientEnd{std::move(exported)})) {}

  void setExportedObject(std::shared_ptr<ServiceProtocol> object) override { exportedObject_ = std::move(object); }
  void setInvalidationHandler(std::function<void()> handler) override { invalidationHandler_ = std::move(handler); }
  void setInterruptionHandler(std::function<void()> handler) override { interruptionHandler_ = std::move(handler); }
  void activate() override { isActive_ = true; }

  std::shared_ptr<ClientProtocol> remoteObjectProxy(std::function<void(const std::string&)> errorHandler) override {
    if (!end_->exported) return nullptr;
    return std::make_shared<Proxy>(end_, std::move(errorHandler));
  }

  /// Null where calls are not delivered.
  std::shared_ptr<ServiceProtocol> service() const { return isActive_ ? exportedObject_ : nullptr; }

  void interrupt() const {
    if (interruptionHandler_) interruptionHandler_();
  }

  void invalidate() {
    end_->isConnected = false;
    if (const auto handler = std::exchange(invalidationHandler_, nullptr)) handler();
    letGo();
  }

  void letGo() {
    isActive_ = false;
    invalidationHandler_ = nullptr;
    interruptionHandler_ = nullptr;
    std::exchange(exportedObject_, nullptr).reset();
  }

 private:
  std::shared_ptr<ClientEnd> end_;
  std::shared_ptr<ServiceProtocol> exportedObject_;
  std::function<void()> invalidationHandler_;
  std::function<void()> interruptionHandler_;
  bool isActive_ = false;
};

std::optional<int> Clients::activate() {
  const auto status = loop_ ? loop_() : std::nullopt;
  dropConnections();
  return status;
}

void Clients::connect(const std::string& name, std::shared_ptr<ClientProtocol> exported) {
  const auto connection = std::make_shared<Connection>(std::move(exported));
  if (delegate_ == nullptr || !delegate_->shouldAcceptNewConnection(connection)) return connection->letGo();
  connections_.push_back(connection);
  newest_[name] = connection;
}

void Clients::call(const std::string& name, ServiceOperation operation, const ServiceReply& reply) const {
  const auto connection = newest_.find(name);
  const auto service = connection == newest_.end() ? nullptr : connection->second->service();
  if (!service) return;
  switch (operation) {
    case ServiceOperation::start: return service->startCollectorWith(reply);
    case ServiceOperation::stop: return service->stopCollectorWith(reply);
    case ServiceOperation::pause: return service->pauseCollectorWith(reply);
    case ServiceOperation::resume: return service->resumeCollectorWith(reply);
  }
}

void Clients::disconnect(const std::string& name) {
  const auto gone = newest_.extract(name);
  if (!gone) return;
  std::erase(connections_, gone.mapped());
  gone.mapped()->invalidate();
}

void Clients::interrupt(const std::string& name) const {
  const auto found = newest_.find(name);
  if (found != newest_.end()) found->second->interrupt();
}

void Clients::dropConnections() {
  newest_.clear();
  for (const auto& connection : std::exchange(connections_, {})) connection->letGo();
}

}  // namespace norra::simulated
