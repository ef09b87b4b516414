// How a user pauses a collection: p on the terminal, or a signal. The terminal gives single keys for that, and is put
// back as it was at every end that a program can see.
#pragma once

#include <termios.h>

#include <optional>

#include "Platform/Linux/runtime/EventLoop.h"

namespace norra {

/// Takes single keys from the terminal on standard input for as long as it lives, if there is one and this process is
/// in its foreground. What is typed is not shown.
class TerminalKeys {
 public:
  TerminalKeys() { begin(); }
  ~TerminalKeys();
  TerminalKeys(const TerminalKeys&) = delete;
  TerminalKeys& operator=(const TerminalKeys&) = delete;

  /// Again, after the process was stopped and continued.
  void begin();

 private:
  std::optional<termios> before_;
};

/// Runs one of its jobs for each p, SIGUSR1 and SIGUSR2. Main thread.
class PauseControl {
 public:
  struct Jobs {
    Job toggle;
    Job pause;
    Job resume;
  };

  /// `loop` outlives this.
  PauseControl(linux_desktop::EventLoop& loop, Jobs jobs);
  PauseControl(const PauseControl&) = delete;
  PauseControl& operator=(const PauseControl&) = delete;

 private:
  linux_desktop::EventSourcePtr watchSignal(linux_desktop::EventLoop& loop, int signal);
  linux_desktop::EventSourcePtr watchKeys(linux_desktop::EventLoop& loop);
  static int onSignal(sd_event_source* source, const struct signalfd_siginfo* signal, void* control) noexcept;
  static int onKeys(sd_event_source* source, int descriptor, std::uint32_t events, void* control) noexcept;

  const Jobs jobs_;
  TerminalKeys keys_;
  const linux_desktop::EventSourcePtr pauseSignal_;
  const linux_desktop::EventSourcePtr resumeSignal_;
  const linux_desktop::EventSourcePtr continueSignal_;
  const linux_desktop::EventSourcePtr keySource_;
};

}  // namespace norra
