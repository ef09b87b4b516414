#include "Platform/Linux/service/BusListener.h"

#include <cerrno>
#include <utility>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

/// The bus takes a message within a millisecond; one that does not is hung.
constexpr std::chrono::seconds sendLimit{2};

std::string noNameProblem(int error) {
  const std::string name = busNames::service;
  if (error == -EEXIST) {
    return name +
           " is offered by another process on this session bus. The service runs already: use it, or end it first.";
  }
  return "The name " + name + " cannot be had on this session bus (" + describe(error) + ").";
}

}  // namespace

const sd_bus_vtable BusListener::methods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS(busNames::startCollectorWith, SD_BUS_NO_ARGS, SD_BUS_RESULT("s", reply), onCall,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS(busNames::stopCollectorWith, SD_BUS_NO_ARGS, SD_BUS_RESULT("s", reply), onCall,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS(busNames::pauseCollectorWith, SD_BUS_NO_ARGS, SD_BUS_RESULT("s", reply), onCall,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS(busNames::resumeCollectorWith, SD_BUS_NO_ARGS, SD_BUS_RESULT("s", reply), onCall,
                            SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

BusListener::Client::Client(BusListener& owner, std::string uniqueName, std::shared_ptr<BusConnection> connection)
    : listener(owner), name(std::move(uniqueName)), calls(owner.bus_.get(), std::move(connection)) {}

BusListener::Opened BusListener::open(EventLoop& loop) {
  auto [bus, problem] = openSessionBus(loop.event(), "service");
  if (!bus) return {nullptr, problem};
  std::unique_ptr<BusListener> listener(new BusListener(loop, std::move(bus)));
  int result = listener->exportService();
  if (result >= 0) result = listener->requestName();
  if (result < 0) return {nullptr, noNameProblem(result)};
  return {std::move(listener), {}};
}

BusListener::~BusListener() { sendQueued(bus_.get(), sendLimit); }

int BusListener::exportService() {
  sd_bus_slot* slot = nullptr;
  int result =
      sd_bus_add_object_vtable(bus_.get(), &slot, busNames::servicePath, busNames::serviceInterface, methods, this);
  if (result < 0) return result;
  object_.reset(slot);
  result = sd_bus_add_match(bus_.get(), &slot, disconnectionMatch, onDisconnected, this);
  if (result >= 0) disconnection_.reset(slot);
  return result;
}

int BusListener::requestName() { return sd_bus_request_name(bus_.get(), busNames::service, 0); }

std::optional<int> BusListener::activate() {
  const auto status = loop_.run();
  hasEnded_ = true;
  clients_.clear();
  return status;
}

void BusListener::end(int status) {
  hasEnded_ = true;
  if (!sendQueued(bus_.get(), sendLimit)) platformLogger().error("The session bus does not take the last reports");
  loop_.end(status);
}

void BusListener::endIfUnused() {
  sd_bus_release_name(bus_.get(), busNames::service);
  while (sd_bus_process(bus_.get(), nullptr) > 0) {
  }
  if (clients_.empty()) return loop_.end(std::nullopt);
  if (const int result = requestName(); result < 0) platformLogger().error(noNameProblem(result));
}

int BusListener::onCall(sd_bus_message* call, void* self, sd_bus_error* error) noexcept {
  auto& listener = *static_cast<BusListener*>(self);
  if (listener.hasEnded_) return 1;
  auto* client = listener.clientNamed(sd_bus_message_get_sender(call));
  if (client == nullptr) return sd_bus_error_set(error, SD_BUS_ERROR_ACCESS_DENIED, "The connection was refused");
  return client->calls.add(call);
}

BusListener::Client* BusListener::clientNamed(const char* name) {
  const auto found = clients_.find(name);
  return found == clients_.end() ? accept(name) : found->second.get();
}

BusListener::Client* BusListener::accept(const char* name) {
  auto connection = std::make_shared<BusConnection>(loop_, ClientDelivery::Client{bus_.get(), name, counts_});
  auto client = std::make_unique<Client>(*this, name, connection);
  if (!watchPresence(*client)) return nullptr;
  if (delegate_ == nullptr || !delegate_->shouldAcceptNewConnection(connection)) {
    connection->letGo();
    return nullptr;
  }
  auto* const accepted = clients_.emplace(name, std::move(client)).first->second.get();
  connectionCountChanged_(clients_.size());
  return accepted;
}

bool BusListener::watchPresence(Client& client) {
  sd_bus_track* track = nullptr;
  if (sd_bus_track_new(bus_.get(), &track, onVanished, &client) < 0) return false;
  client.presence.reset(track);
  return sd_bus_track_add_name(track, client.name.c_str()) >= 0;
}

int BusListener::onVanished(sd_bus_track*, void* context) noexcept {
  const auto& client = *static_cast<Client*>(context);
  if (sd_bus_is_open(client.listener.bus_.get()) > 0) client.listener.remove(std::string(client.name));
  return 0;
}

void BusListener::remove(const std::string& name) {
  const auto removed = clients_.extract(name);
  if (removed.empty()) return;
  removed.mapped()->calls.connection().invalidate();
  connectionCountChanged_(clients_.size());
}

int BusListener::onDisconnected(sd_bus_message*, void* self, sd_bus_error*) noexcept {
  auto& listener = *static_cast<BusListener*>(self);
  listener.interruptAll();
  platformLogger().error("The session bus was lost");
  listener.loop_.end(std::nullopt);
  return 0;
}

void BusListener::interruptAll() {
  for (const auto& [name, client] : clients_) client->calls.connection().interrupt();
}

}  // namespace norra::linux_desktop
