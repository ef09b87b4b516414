#include "Client/PauseControl.h"

#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

namespace norra {

using linux_desktop::EventLoop;
using linux_desktop::EventSourcePtr;

TerminalKeys::~TerminalKeys() {
  if (before_ && tcgetpgrp(STDIN_FILENO) == getpgrp()) tcsetattr(STDIN_FILENO, TCSANOW, &*before_);
}

void TerminalKeys::begin() {
  termios now{};
  if (tcgetpgrp(STDIN_FILENO) != getpgrp() || tcgetattr(STDIN_FILENO, &now) != 0) return;
  if (!before_) before_ = now;
  now.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  tcsetattr(STDIN_FILENO, TCSANOW, &now);
}

PauseControl::PauseControl(EventLoop& loop, Jobs jobs)
    : jobs_(std::move(jobs)),
      pauseSignal_(watchSignal(loop, SIGUSR1)),
      resumeSignal_(watchSignal(loop, SIGUSR2)),
      continueSignal_(watchSignal(loop, SIGCONT)),
      keySource_(watchKeys(loop)) {}

EventSourcePtr PauseControl::watchSignal(EventLoop& loop, int signal) {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, signal);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  sd_event_source* source = nullptr;
  sd_event_add_signal(loop.event(), &source, signal, onSignal, this);
  return EventSourcePtr(source);
}

EventSourcePtr PauseControl::watchKeys(EventLoop& loop) {
  sd_event_source* source = nullptr;
  if (isatty(STDIN_FILENO) != 0) sd_event_add_io(loop.event(), &source, STDIN_FILENO, EPOLLIN | EPOLLET, onKeys, this);
  return EventSourcePtr(source);
}

int PauseControl::onSignal(sd_event_source*, const signalfd_siginfo* signal, void* self) noexcept {
  auto& control = *static_cast<PauseControl*>(self);
  if (signal->ssi_signo == SIGUSR1) control.jobs_.pause();
  if (signal->ssi_signo == SIGUSR2) control.jobs_.resume();
  if (signal->ssi_signo == SIGCONT) control.keys_.begin();
  return 0;
}

int PauseControl::onKeys(sd_event_source* source, int descriptor, std::uint32_t, void* self) noexcept {
  // A read in the background would stop the process.
  if (tcgetpgrp(descriptor) != getpgrp()) return 0;
  std::array<char, 64> keys{};
  const auto count = read(descriptor, keys.data(), keys.size());
  if (count <= 0) sd_event_source_set_enabled(source, SD_EVENT_OFF);
  for (auto left = std::count(keys.begin(), keys.begin() + std::max<ssize_t>(count, 0), 'p'); left > 0; --left) {
    static_cast<PauseControl*>(self)->jobs_.toggle();
  }
  return 0;
}

}  // namespace norra
