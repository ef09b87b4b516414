#include "Platform/Linux/service/AutomaticTermination.h"

#include <utility>

namespace norra::linux_desktop {

AutomaticTermination::AutomaticTermination(MainRunLoop& loop, std::chrono::nanoseconds idleTime,
                                           std::function<void()> end)
    : loop_(loop), idleTime_(idleTime), end_(std::move(end)) {}

AutomaticTermination::~AutomaticTermination() {
  if (pendingEnd_) pendingEnd_->cancel();
}

void AutomaticTermination::setEnabled(bool enabled) {
  isEnabled_ = enabled;
  update();
}

void AutomaticTermination::setConnectedClients(std::size_t count) {
  connectedClients_ = count;
  update();
}

void AutomaticTermination::setOpenTransactions(std::size_t count) {
  openTransactions_ = count;
  update();
}

void AutomaticTermination::update() {
  const bool isIdle = isEnabled_ && connectedClients_ == 0 && openTransactions_ == 0;
  if (isIdle && !pendingEnd_) {
    pendingEnd_ = loop_.postAfter(idleTime_, [this] { idleTimePassed(); });
  } else if (!isIdle && pendingEnd_) {
    std::exchange(pendingEnd_, nullptr)->cancel();
  }
}

void AutomaticTermination::idleTimePassed() {
  pendingEnd_.reset();
  end_();
  update();
}

}  // namespace norra::linux_desktop
