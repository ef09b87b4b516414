#include "Platform/Linux/atspi/AtspiConnection.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

// The bus itself greets a connection.
constexpr int maxUncalledMessages = 16;

constexpr std::array<std::string_view, 5> errorsOfAVanishedElement{
    "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner",
    "org.freedesktop.DBus.Error.UnknownObject", "org.freedesktop.DBus.Error.NoReply",
    "org.freedesktop.DBus.Error.Disconnected"};

AXError errorOf(sd_bus_message* reply) {
  const auto* error = sd_bus_message_get_error(reply);
  if (!error) return axError::success;
  const bool isGone =
      std::ranges::find(errorsOfAVanishedElement, std::string_view(error->name)) != errorsOfAVanishedElement.end();
  return isGone ? axError::invalidUIElement : axError::failure;
}

// Nothing else is asked for: of no attributes, roles and interfaces an element has all.
int append(sd_bus_message* message, const FirstWithState& wanted) {
  constexpr int all = 1;
  constexpr unsigned inTheirOrder = 1;
  const auto states = std::uint64_t{1} << wanted.state;
  return sd_bus_message_append(message, "(aiia{ss}iaiiasib)uib", 2, static_cast<std::uint32_t>(states),
                               static_cast<std::uint32_t>(states >> 32), all, 0, all, 0, all, 0, all, 0, inTheirOrder,
                               wanted.count, 1);
}

int append(sd_bus_message* message, const AtspiArgument& argument) {
  if (const auto* number = std::get_if<std::int32_t>(&argument)) {
    return sd_bus_message_append_basic(message, SD_BUS_TYPE_INT32, number);
  }
  if (const auto* number = std::get_if<std::uint32_t>(&argument)) {
    return sd_bus_message_append_basic(message, SD_BUS_TYPE_UINT32, number);
  }
  if (const auto* wanted = std::get_if<FirstWithState>(&argument)) return append(message, *wanted);
  return sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING, std::get<std::string>(argument).c_str());
}

MessagePtr newMessage(sd_bus* bus, const AtspiCall& call) {
  sd_bus_message* handle = nullptr;
  if (sd_bus_message_new_method_call(bus, &handle, call.target.busName.c_str(), call.target.path.c_str(),
                                     call.interface, call.member) < 0) {
    return nullptr;
  }
  MessagePtr message(handle);
  if (sd_bus_message_set_auto_start(handle, 0) < 0) return nullptr;
  for (const auto& argument : call.arguments) {
    if (append(handle, argument) < 0) return nullptr;
  }
  return message;
}

}  // namespace

struct AtspiConnection::Pending {
  AtspiReply reply;
  SlotPtr slot;
  std::size_t* outstanding = nullptr;

  bool isAwaited() const { return slot && !reply.message && reply.error == axError::cannotComplete; }
};

AtspiCall propertyCall(AtspiReference target, const char* interface, const char* property) {
  return {std::move(target), "org.freedesktop.DBus.Properties", "Get", {std::string(interface), std::string(property)}};
}

std::vector<AtspiReply> AtspiConnection::exchange(std::span<const AtspiCall> calls, TimePoint deadline) {
  std::vector<Pending> pending(calls.size());
  if (calls.empty() || !isReady()) return std::vector<AtspiReply>(calls.size());
  std::size_t outstanding = 0;
  const auto now = steady_clock::now();
  for (std::size_t i = 0; i < calls.size(); ++i) {
    pending[i].outstanding = &outstanding;
    if (shared_.resting.isResting(calls[i].target.busName, now)) {
      ++shared_.statistics.spared;
    } else if (send(calls[i], pending[i]) >= 0) {
      ++outstanding;
    } else {
      pending[i].reply.error = axError::invalidUIElement;
    }
  }
  if (outstanding > 0) ++shared_.statistics.waves;
  if (!serveBus(bus_.get(), std::min(deadline, now + limit), [&outstanding] { return outstanding == 0; })) {
    noteTimeOuts(calls, pending, deadline);
  }
  std::vector<AtspiReply> replies;
  replies.reserve(pending.size());
  for (auto& one : pending) replies.push_back(std::move(one.reply));
  return replies;
}

// Whoever was asked knows the connection's name and may send to it; what waits there then would hold up the answers of
// others. A new connection has a name that nobody knows.
bool AtspiConnection::isReady() {
  if (!isConnected()) return false;
  dispatchLateReplies();
  if (uncalledMessages_ > maxUncalledMessages) bus_.reset();
  return isConnected();
}

bool AtspiConnection::isConnected() {
  if (bus_ && sd_bus_is_open(bus_.get()) > 0) return true;
  bus_ = shared_.bus.connect();
  uncalledMessages_ = 0;
  return bus_ && sd_bus_add_filter(bus_.get(), nullptr, &onAnyMessage, this) >= 0;
}

int AtspiConnection::send(const AtspiCall& call, Pending& pending) {
  const auto message = newMessage(bus_.get(), call);
  if (!message) return -1;
  sd_bus_slot* slot = nullptr;
  const auto result =
      sd_bus_call_async(bus_.get(), &slot, message.get(), &onReply, &pending, static_cast<std::uint64_t>(-1));
  pending.slot.reset(slot);
  if (result >= 0) ++shared_.statistics.reads;
  return result;
}

void AtspiConnection::dispatchLateReplies() {
  while (uncalledMessages_ <= maxUncalledMessages && sd_bus_process(bus_.get(), nullptr) > 0) {
  }
}

void AtspiConnection::noteTimeOuts(std::span<const AtspiCall> calls, std::span<const Pending> pending,
                                   TimePoint deadline) {
  const auto now = steady_clock::now();
  const bool hadTheWholeLimit = now < deadline;
  for (std::size_t i = 0; i < calls.size(); ++i) {
    if (!pending[i].isAwaited()) continue;
    ++shared_.statistics.timeOuts;
    if (hadTheWholeLimit && sd_bus_is_open(bus_.get()) > 0) {
      shared_.resting.didNotAnswer(calls[i].target.busName, now);
    }
  }
}

int AtspiConnection::onReply(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  auto& pending = *static_cast<Pending*>(self);
  pending.reply.error = errorOf(message);
  if (pending.reply.error == axError::success) pending.reply.message.reset(sd_bus_message_ref(message));
  --*pending.outstanding;
  return 1;
}

int AtspiConnection::onAnyMessage(sd_bus_message* message, void* self, sd_bus_error* /*error*/) noexcept {
  const bool isReply = sd_bus_message_is_method_call(message, nullptr, nullptr) == 0 &&
                       sd_bus_message_is_signal(message, nullptr, nullptr) == 0;
  auto& connection = *static_cast<AtspiConnection*>(self);
  const char* sender = sd_bus_message_get_sender(message);
  if (!isReply) ++connection.uncalledMessages_;
  if (isReply && sender) connection.shared_.resting.showedLife(sender);
  return 0;
}

}  // namespace norra::linux_desktop
