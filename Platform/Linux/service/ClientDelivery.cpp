#include "Platform/Linux/service/ClientDelivery.h"

#include <algorithm>
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

int callAsync(sd_bus_message* call, SlotPtr& answer, sd_bus_message_handler_t onAnswer, void* context) {
  sd_bus_slot* slot = nullptr;
  const int result = sd_bus_call_async(nullptr, &slot, call, onAnswer, context, noTimeout);
  answer.reset(slot);
  return result;
}

int sendWithoutAnswer(sd_bus_message* call) {
  const int result = sd_bus_message_set_expect_reply(call, 0);
  return result < 0 ? result : sd_bus_send(nullptr, call, nullptr);
}

/// Said by the bus: the client has gone, with whatever it had not read.
bool saysThatNobodyIsThere(const sd_bus_error& error) {
  return sd_bus_error_has_names(&error, SD_BUS_ERROR_NO_REPLY, SD_BUS_ERROR_SERVICE_UNKNOWN,
                                SD_BUS_ERROR_NAME_HAS_NO_OWNER, SD_BUS_ERROR_DISCONNECTED) != 0;
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
  lose(1, "The client " + client_.name + " does not read its reports");
  return false;
}

void ClientDelivery::send(const std::string& event, std::chrono::system_clock::time_point date,
                          bool isApplicationEvent) {
  ++nextOrdinal_;
  sent_.push_back(event.size());
  const int result = sendReport(event, date, isApplicationEvent);
  if (result < 0) {
    unread_.remove(event.size());
    sent_.pop_back();
    --nextOrdinal_;
    return lose(1, describe(result));
  }
  ++client_.counts.sent;
  if (sent_.size() >= client_.limits.reports / 2) askForSignOfLife();
}

int ClientDelivery::sendReport(const std::string& event, std::chrono::system_clock::time_point date,
                               bool isApplicationEvent) {
  auto [result, report] = newCall(client_, busNames::clientInterface, busNames::addEvent);
  if (result >= 0) {
    result = sd_bus_message_append(report.get(), "stb", event.c_str(), microsecondsSinceEpoch(date),
                                   int{isApplicationEvent});
  }
  if (result < 0) return result;
  return report_.answer ? sendWithoutAnswer(report.get()) : sendAskingForAnswer(report.get());
}

int ClientDelivery::sendAskingForAnswer(sd_bus_message* report) {
  report_.readBefore = nextOrdinal_;
  return callAsync(report, report_.answer, onAnswer, this);
}

void ClientDelivery::askForSignOfLife() {
  if (signOfLife_.answer) return;
  signOfLife_.readBefore = nextOrdinal_;
  const auto [result, ping] = newCall(client_, "org.freedesktop.DBus.Peer", "Ping");
  if (result >= 0) callAsync(ping.get(), signOfLife_.answer, onSignOfLife, this);
}

void ClientDelivery::take(sd_bus_message* answer, Question& question) {
  question.answer.reset();
  const auto* error = sd_bus_message_get_error(answer);
  if (error != nullptr && saysThatNobodyIsThere(*error)) {
    lose(settle(nextOrdinal_), describe(*error));
  } else if (error != nullptr && &question == &report_) {
    lose(std::max(settle(question.readBefore), std::size_t{1}), describe(*error));
  } else {
    settle(question.readBefore);
  }
  if (!sent_.empty() && !report_.answer) askForSignOfLife();
}

std::size_t ClientDelivery::settle(std::uint64_t before) {
  const auto unsettled = sent_.size();
  for (auto first = nextOrdinal_ - sent_.size(); first < before; ++first) {
    unread_.remove(sent_.front());
    sent_.pop_front();
  }
  return unsettled - sent_.size();
}

void ClientDelivery::lose(std::size_t reports, const std::string& why) {
  if (reports == 0) return;
  client_.counts.lost += reports;
  errorHandler_(reports == 1 ? why : std::to_string(reports) + " reports were lost: " + why);
}

int ClientDelivery::onAnswer(sd_bus_message* answer, void* self, sd_bus_error*) noexcept {
  const auto delivery = static_cast<ClientDelivery*>(self)->shared_from_this();
  delivery->take(answer, delivery->report_);
  return 1;
}

int ClientDelivery::onSignOfLife(sd_bus_message* answer, void* self, sd_bus_error*) noexcept {
  const auto delivery = static_cast<ClientDelivery*>(self)->shared_from_this();
  delivery->take(answer, delivery->signOfLife_);
  return 1;
}

}  // namespace norra::linux_desktop
