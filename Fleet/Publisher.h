// From lines to messages of the broker of this machine, with nothing lost while that is away, restarts or crashes.
//
// A broker acknowledges a message when it holds it in memory, and writes it to its disk later. So a line is kept for
// some time after its acknowledgement, and everything that is kept is sent again, in order, over each new connection:
// whoever reads tells by the sequence number what came before.
#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "Fleet/BrokerConnection.h"
#include "Fleet/Messages.h"
#include "Fleet/Spool.h"

namespace norra::fleet {

struct PublisherOptions {
  /// Where the broker listens.
  std::string socket;
  Desktop desktop;
  /// How long a line is kept after its acknowledgement: longer than the broker takes to write it to its disk.
  std::chrono::seconds keeping;
};

/// Main thread.
class Publisher {
 public:
  using Tell = std::function<void(const std::string& text)>;
  /// Whether everything has arrived.
  using Finished = std::function<void(bool hasArrived)>;

  /// Begins at once, with what the spool holds. `loop` outlives this.
  Publisher(linux_desktop::EventLoop& loop, Spool spool, PublisherOptions options, Tell tell);
  Publisher(const Publisher&) = delete;
  Publisher& operator=(const Publisher&) = delete;

  /// The next report of this session, a JSON object in one line; another line is left out, and that is told.
  void publish(const std::string& line);

  /// No line follows. Called once: when all are acknowledged and the farewell is said, or the time is over.
  void finish(std::chrono::seconds limit, Finished finished);

 private:
  struct Mark {
    std::chrono::steady_clock::time_point time;
    Spool::Number acknowledged;  // what came before it was then
  };

  void connect();
  void connected();
  void acknowledged(int number);
  void refused(int number, const std::string& reason);
  void connectionEnded(const std::string& reason);
  void sendMore();
  void sayFarewellWhenDone();
  void end(bool hasArrived);
  void eachSecond();
  void releaseOld();
  void saveSpool();
  Spool::Number firstUnacknowledged() const;
  Message stateMessage(const std::string& text) const;

  linux_desktop::EventLoop& loop_;
  const PublisherOptions options_;
  const Tell tell_;
  const std::string session_;
  const std::string topic_;
  Spool spool_;
  std::uint64_t sequence_ = 0;  // of the last line
  std::unique_ptr<BrokerConnection> connection_;
  bool isConnected_ = false;
  bool wasAwayTold_ = false;
  Spool::Number next_ = 0;                           // to be sent
  std::unordered_map<int, Spool::Number> inFlight_;  // sent and not acknowledged
  std::deque<Mark> marks_;
  int spoolError_ = 0;
  Finished finished_;
  std::optional<int> farewell_;
  std::shared_ptr<DispatchWorkItem> timer_;
  std::shared_ptr<DispatchWorkItem> limit_;
};

}  // namespace norra::fleet
