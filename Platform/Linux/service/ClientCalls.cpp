#include "Platform/Linux/service/ClientCalls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxWaitingCalls = 64;
constexpr std::uint64_t introspectionLimitMicroseconds = 250'000;
constexpr std::string_view start = busNames::startCollectorWith;

using Operation = void (ServiceProtocol::*)(const ServiceReply&);
constexpr std::array<std::pair<std::string_view, Operation>, 4> operations{{
    {start, &ServiceProtocol::startCollectorWith},
    {busNames::stopCollectorWith, &ServiceProtocol::stopCollectorWith},
    {busNames::pauseCollectorWith, &ServiceProtocol::pauseCollectorWith},
    {busNames::resumeCollectorWith, &ServiceProtocol::resumeCollectorWith},
}};

Operation operationNamed(std::string_view member) {
  const auto* found = std::ranges::find(operations, member, [](const auto& entry) { return entry.first; });
  return found == operations.end() ? nullptr : found->second;
}

std::string_view memberOf(const MessagePtr& call) { return sd_bus_message_get_member(call.get()); }

/// Whether what a client said about its object allows to report to it.
bool isUsable(sd_bus_message* introspection) {
  if (sd_bus_message_is_method_error(introspection, SD_BUS_ERROR_NO_REPLY) > 0) return true;
  const char* text = nullptr;
  if (sd_bus_message_is_method_error(introspection, nullptr) > 0) return false;
  if (sd_bus_message_read(introspection, "s", &text) < 0) return false;
  const std::string_view description = text;
  return description.find(busNames::clientInterface) != std::string_view::npos &&
         description.find(busNames::addEvent) != std::string_view::npos;
}

MessagePtr newIntrospection(sd_bus* bus, const char* client) {
  sd_bus_message* message = nullptr;
  sd_bus_message_new_method_call(bus, &message, client, busNames::clientPath, "org.freedesktop.DBus.Introspectable",
                                 "Introspect");
  return MessagePtr(message);
}

}  // namespace

ClientCalls::ClientCalls(sd_bus* bus, std::shared_ptr<BusConnection> connection)
    : bus_(bus), connection_(std::move(connection)) {}

int ClientCalls::add(sd_bus_message* call) {
  if (waiting_.size() >= maxWaitingCalls) return -ENOBUFS;
  waiting_.emplace_back(sd_bus_message_ref(call));
  answerWaiting();
  return 1;
}

void ClientCalls::answerWaiting() {
  while (!waiting_.empty() && introspection_ == nullptr) {
    if (memberOf(waiting_.front()) == start && !isClientObjectLookedAt()) return;
    answerFirst();
  }
}

void ClientCalls::answerFirst() {
  const auto call = std::move(waiting_.front());
  waiting_.pop_front();
  isFirstLookedAt_ = false;
  const auto object = connection_->exportedObject();
  if (object == nullptr) {
    sd_bus_reply_method_errorf(call.get(), SD_BUS_ERROR_FAILED, "The connection is not active");
    return;
  }
  std::invoke(operationNamed(memberOf(call)), *object, [&call](std::string_view reply) {
    sd_bus_reply_method_return(call.get(), "s", std::string(reply).c_str());
  });
}

bool ClientCalls::isClientObjectLookedAt() {
  if (isFirstLookedAt_) return true;
  const auto question = newIntrospection(bus_, sd_bus_message_get_sender(waiting_.front().get()));
  sd_bus_slot* slot = nullptr;
  const int result =
      sd_bus_call_async(bus_, &slot, question.get(), onIntrospection, this, introspectionLimitMicroseconds);
  introspection_.reset(slot);
  return result < 0;
}

int ClientCalls::onIntrospection(sd_bus_message* answer, void* context, sd_bus_error*) noexcept {
  auto& calls = *static_cast<ClientCalls*>(context);
  calls.introspection_.reset();
  calls.isFirstLookedAt_ = true;
  calls.connection_->setClientObjectUsable(isUsable(answer));
  calls.answerWaiting();
  return 1;
}

}  // namespace norra::linux_desktop
