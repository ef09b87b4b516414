#include "Fleet/Publisher.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "Fleet/Messages.h"

namespace norra::fleet {
namespace {

/// So many messages travel at once; the others wait in the spool.
constexpr std::size_t maxInFlight = 100;

}  // namespace

Publisher::Publisher(linux_desktop::EventLoop& loop, Spool spool, PublisherOptions options, Tell tell)
    : loop_(loop),
      options_(std::move(options)),
      tell_(std::move(tell)),
      session_(newSessionIdentifier()),
      topic_(topicOf(options_.desktop, "interactions")),
      spool_(std::move(spool)) {
  connect();
  timer_ = loop_.postAfter(std::chrono::seconds(1), [this] { eachSecond(); });
}

void Publisher::publish(const std::string& line) {
  auto report = stampedReport(line, session_, sequence_ + 1);
  if (!report) return tell_("A line that is no JSON object was left out.");
  ++sequence_;
  const auto lost = spool_.append(std::move(*report));
  if (lost > 0) tell_("Reports that had to give way to new ones: " + std::to_string(lost) + ".");
  sendMore();
}

void Publisher::finish(std::chrono::seconds limit, Finished finished) {
  finished_ = std::move(finished);
  limit_ = loop_.postAfter(limit, [this] { end(false); });
  sayFarewellWhenDone();
}

Message Publisher::stateMessage(const std::string& text) const {
  return {.topic = topicOf(options_.desktop, "state"), .text = text, .isRetained = true};
}

void Publisher::connect() {
  connection_ = std::make_unique<BrokerConnection>(
      loop_, options_.socket, stateMessage(stateText("lost", session_)),
      BrokerConnection::Events{.connected = [this] { connected(); },
                               .acknowledged = [this](int number) { acknowledged(number); },
                               .refused = [this](int number, const std::string& why) { refused(number, why); },
                               .ended = [this](const std::string& reason) { connectionEnded(reason); }});
}

void Publisher::connected() {
  isConnected_ = true;
  if (std::exchange(wasAwayTold_, false)) tell_("The broker is there again.");
  connection_->publish(stateMessage(stateText("collecting", session_)));
  sendMore();
  sayFarewellWhenDone();
}

void Publisher::connectionEnded(const std::string& reason) {
  if (!std::exchange(wasAwayTold_, true)) tell_("The broker is away (" + reason + "). Reports wait on the disk.");
  isConnected_ = false;
  connection_.reset();
  inFlight_.clear();
  marks_.clear();
  farewell_.reset();
  next_ = spool_.begin();
}

void Publisher::acknowledged(int number) {
  if (number == farewell_) {
    loop_.post([this] { end(true); });  // outside of the library's callback, where a farewell is sent at once
    return;
  }
  inFlight_.erase(number);
  sendMore();
  sayFarewellWhenDone();
}

/// A broker that has just begun may not have its bridge yet: a report waits for it. A state is retained for whoever
/// comes.
void Publisher::refused(int number, const std::string& reason) {
  inFlight_.contains(number) ? connection_->giveUp(reason) : acknowledged(number);
}

void Publisher::sendMore() {
  next_ = std::max(next_, spool_.begin());
  while (isConnected_ && inFlight_.size() < maxInFlight && next_ < spool_.end()) {
    const auto number = connection_->publish({.topic = topic_, .text = spool_[next_]});
    if (!number) return;
    inFlight_.emplace(*number, next_++);
  }
}

void Publisher::sayFarewellWhenDone() {
  if (!finished_ || !isConnected_ || farewell_ || firstUnacknowledged() < spool_.end()) return;
  farewell_ = connection_->publish(stateMessage(stateText("ended", session_, sequence_)));
}

void Publisher::end(bool hasArrived) {
  if (connection_ && hasArrived) connection_->sayFarewell();
  saveSpool();
  if (auto finished = std::exchange(finished_, nullptr)) finished(hasArrived);
}

Spool::Number Publisher::firstUnacknowledged() const {
  auto first = next_;
  for (const auto& [number, line] : inFlight_) first = std::min(first, line);
  return first;
}

void Publisher::eachSecond() {
  if (connection_) connection_->keepAlive();
  if (!connection_) connect();
  releaseOld();
  saveSpool();
  timer_ = loop_.postAfter(std::chrono::seconds(1), [this] { eachSecond(); });
}

void Publisher::releaseOld() {
  const auto now = std::chrono::steady_clock::now();
  if (isConnected_) marks_.push_back({now, firstUnacknowledged()});
  for (; !marks_.empty() && now - marks_.front().time > options_.keeping; marks_.pop_front()) {
    spool_.releaseBefore(marks_.front().acknowledged);
  }
}

void Publisher::saveSpool() {
  const int error = spool_.save();
  const int before = std::exchange(spoolError_, error);
  if (error != 0 && error != before) {
    tell_(std::string("The disk cannot be written (") + std::strerror(error) + "). Reports wait in memory.");
  }
  if (error == 0 && before != 0) tell_("The disk can be written again.");
}

}  // namespace norra::fleet
