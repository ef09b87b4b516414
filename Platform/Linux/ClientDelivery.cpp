#include "Platform/Linux/ClientDelivery.h"

#include <utility>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"

namespace norra::linux_desktop {
namespace {

/// The bus itself answers for a client that goes away, so an answer may be awaited without an end of its own.
constexpr std::uint64_t noTimeout = UINT64_MAX;

std::uint64_t microsecondsSinceEpoch(std::chrono::system_clock::time_point date) {
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::microseconds>(date.time_since_epoch()).count());
}

struct Call {
  int result = 0;  // negative where the call could not be made
  MessagePtr message;
};

Call newCall(const ClientDelivery::Client& client, const char* interface, const char* method) {
  sd_bus_message* message = nullptr;
  const int result = sd_bus_message_new_method_call(client.bus, &message, client.name.c_str(), busNames::clientPath,
                                                    interface, method);
  return {result, MessagePtr(message)};
}

/// Nothing beside a negative result.
SlotPtr callAsync(Call& call, sd_bus_message_handler_t onAnswer, void* context) {
  sd_bus_slot* slot = nullptr;
  if (call.result >= 0) {
    call.result = sd_bus_call_async(nullptr, &slot, call.message.get(), onAnswer, context, noTimeout);
  }
  return SlotPtr(slot);
}

}  // namespace

bool UnreadReports::add(std::size_t bytes) {
  const auto reports = ++reports_;
  const auto allBytes = bytes_ += bytes;
  if (reports <= limits_.reports && allBytes <= limits_.bytes) return true;
  remove(bytes);
  return false;
}

void UnreadReports::remove(std::size_t bytes) {
  --reports_;
  bytes_ -= bytes;
}

ClientDelivery::ClientDelivery(Client client, ErrorHandler errorHandler)
    : client_(std::move(client)), errorHandler_(std::move(errorHandler)), unread_(client_.limits) {}

bool ClientDelivery::admit(const std::string& event) {
  if (unread_.add(event.size())) return true;
  errorHandler_("The client " + client_.name + " does not read its reports");
  return false;
}

void ClientDelivery::send(const std::string& event, std::chrono::system_clock::time_point date,
                          bool isApplicationEvent) {
  const auto ordinal = nextOrdinal_++;
  const auto unanswered = unanswered_.emplace(ordinal, Unanswered{this, ordinal, event.size(), nullptr}).first;
  auto call = newCall(client_, busNames::clientInterface, busNames::addEvent);
  if (call.result >= 0) {
    call.result = sd_bus_message_append(call.message.get(), "stb", event.c_str(), microsecondsSinceEpoch(date),
                                        int{isApplicationEvent});
  }
  unanswered->second.answer = callAsync(call, onAnswer, &unanswered->second);
  if (unanswered_.size() >= client_.limits.reports / 2) askForSignOfLife();
  if (call.result < 0) {
    forget(unanswered);
    errorHandler_(describe(call.result));
  }
}

void ClientDelivery::askForSignOfLife() {
  if (signOfLife_ != nullptr) return;
  askedBefore_ = nextOrdinal_;
  auto call = newCall(client_, "org.freedesktop.DBus.Peer", "Ping");
  signOfLife_ = callAsync(call, onSignOfLife, this);
}

void ClientDelivery::forget(UnansweredByOrdinal::iterator unanswered) {
  unread_.remove(unanswered->second.bytes);
  unanswered_.erase(unanswered);
}

void ClientDelivery::forgetAllBefore(std::uint64_t ordinal) {
  while (!unanswered_.empty() && unanswered_.begin()->first < ordinal) forget(unanswered_.begin());
}

int ClientDelivery::onAnswer(sd_bus_message* answer, void* context, sd_bus_error*) noexcept {
  const auto& unanswered = *static_cast<Unanswered*>(context);
  const auto delivery = unanswered.delivery->shared_from_this();
  delivery->forget(delivery->unanswered_.find(unanswered.ordinal));
  if (const auto* error = sd_bus_message_get_error(answer)) delivery->errorHandler_(describe(*error));
  return 1;
}

int ClientDelivery::onSignOfLife(sd_bus_message*, void* context, sd_bus_error*) noexcept {
  const auto delivery = static_cast<ClientDelivery*>(context)->shared_from_this();
  delivery->signOfLife_.reset();
  delivery->forgetAllBefore(delivery->askedBefore_);
  return 1;
}

}  // namespace norra::linux_desktop
