// Keeps account of the reports that are on their way to one client.
//
// A bus takes every message at once and keeps it until the client reads, so a client that has stopped reading would
// fill the bus for everybody. Therefore it is counted what a client has not read yet. Past a limit its reports are
// lost, which is said, and those to others go on. How far it has read is learnt from a question now and then, whose
// answer comes after everything before it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "Platform/Linux/runtime/SessionBus.h"

namespace norra::linux_desktop {

/// What one client may leave unread before reports to it are lost.
struct UnreadLimits {
  std::size_t reports = 1024;
  std::size_t bytes = std::size_t{4} << 20;
};

/// Of the reports to all clients. Any thread.
struct DeliveryCounts {
  std::atomic<std::uint64_t> sent = 0;  // those that were lost on their way included
  std::atomic<std::uint64_t> lost = 0;
};

/// Counts what a client has not read yet. Any thread.
class UnreadReports {
 public:
  explicit UnreadReports(UnreadLimits limits) : limits_(limits) {}
  /// False where the limits leave no place for it; then nothing is counted.
  bool add(std::size_t bytes);
  void remove(std::size_t bytes);

 private:
  const UnreadLimits limits_;
  std::atomic<std::size_t> reports_ = 0;
  std::atomic<std::size_t> bytes_ = 0;
};

/// Sends the reports without waiting. At most one of them at a time asks for an answer, which tells that all up to it
/// were read; a client is asked for a sign of life where reports behind that one are left, and, since it may read and
/// never answer, when half the limit is reached. So as long as a report may still be lost a question is open that would
/// tell, and the bus has at most two for each client to keep. Main thread, admit() excepted.
class ClientDelivery : public std::enable_shared_from_this<ClientDelivery> {
 public:
  using ErrorHandler = std::function<void(const std::string& description)>;

  struct Client {
    sd_bus* bus;  // not owned
    std::string name;
    DeliveryCounts& counts;
    UnreadLimits limits = {};
  };

  ClientDelivery(Client client, ErrorHandler errorHandler);

  /// Whether the report may be sent; it is lost otherwise, and the error handler was told. Any thread.
  bool admit(const std::string& event);

  /// Sends an admitted report. An error of the bus or the client comes to the error handler, now or later.
  void send(const std::string& event, std::chrono::system_clock::time_point date, bool isApplicationEvent);

 private:
  /// A question to the client whose answer tells that it has read everything before.
  struct Question {
    SlotPtr answer;                // present while it is awaited
    std::uint64_t readBefore = 0;  // the ordinal of the first report that the answer says nothing about
  };

  int sendReport(const std::string& event, std::chrono::system_clock::time_point date, bool isApplicationEvent);
  int sendAskingForAnswer(sd_bus_message* report);
  void askForSignOfLife();
  /// Settles what the answer tells of: reports that were read, or that are lost.
  void take(sd_bus_message* answer, Question& question);
  /// How many of the reports before this one were not settled yet; now they are.
  std::size_t settle(std::uint64_t before);
  void lose(std::size_t reports, const std::string& why);
  static int onAnswer(sd_bus_message* answer, void* delivery, sd_bus_error* error) noexcept;
  static int onSignOfLife(sd_bus_message* answer, void* delivery, sd_bus_error* error) noexcept;

  const Client client_;
  const ErrorHandler errorHandler_;
  UnreadReports unread_;

  std::deque<std::size_t> sent_;  // the sizes of what was sent and is not known to be read
  std::uint64_t nextOrdinal_ = 0;
  Question report_;
  Question signOfLife_;
};

}  // namespace norra::linux_desktop
