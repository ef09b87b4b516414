// Keeps account of the reports that are on their way to one client.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "Platform/Linux/SessionBus.h"

namespace norra::linux_desktop {

/// What one client may leave unread before reports to it are lost.
struct UnreadLimits {
  std::size_t reports = 1024;
  std::size_t bytes = std::size_t{4} << 20;
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

/// A client that answers its calls tells so that it has read them. One that reads and never answers is asked for a sign
/// of life when half the limit is reached. Main thread, admit() excepted.
class ClientDelivery : public std::enable_shared_from_this<ClientDelivery> {
 public:
  using ErrorHandler = std::function<void(const std::string& description)>;

  struct Client {
    sd_bus* bus;  // not owned
    std::string name;
    UnreadLimits limits = {};
  };

  ClientDelivery(Client client, ErrorHandler errorHandler);

  /// Whether the report may be sent; it is lost otherwise, and the error handler was told. Any thread.
  bool admit(const std::string& event);

  /// Sends an admitted report. An error of the bus or the client comes to the error handler, now or later.
  void send(const std::string& event, std::chrono::system_clock::time_point date, bool isApplicationEvent);

 private:
  struct Unanswered {
    ClientDelivery* delivery;
    std::uint64_t ordinal;
    std::size_t bytes;
    SlotPtr answer;
  };
  using UnansweredByOrdinal = std::map<std::uint64_t, Unanswered>;

  void askForSignOfLife();
  void forget(UnansweredByOrdinal::iterator unanswered);
  void forgetAllBefore(std::uint64_t ordinal);
  static int onAnswer(sd_bus_message* answer, void* unanswered, sd_bus_error* error) noexcept;
  static int onSignOfLife(sd_bus_message* answer, void* delivery, sd_bus_error* error) noexcept;

  const Client client_;
  const ErrorHandler errorHandler_;
  UnreadReports unread_;

  std::uint64_t nextOrdinal_ = 0;
  UnansweredByOrdinal unanswered_;
  std::uint64_t askedBefore_ = 0;  // the ordinal of the first report after the question
  SlotPtr signOfLife_;             // present while it is awaited
};

}  // namespace norra::linux_desktop
