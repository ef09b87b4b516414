// The user's hands, with a clock in them.
#pragma once

#include <chrono>
#include <memory>

#include "Platform/Accessibility.h"
#include "Platform/Linux/x11/X11Connection.h"

namespace norra::benchmarks {

/// Whoever clicks waits for what it is about between the clicks.
class Hands {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// Null: hands that do nothing, for what is read of an application at rest.
  explicit Hands(std::unique_ptr<linux_desktop::X11Connection> connection) : connection_(std::move(connection)) {}

  /// Presses the left button, keeps it for as long as a person does, and lets go. When it was let go: just before.
  TimePoint click();

 private:
  void fake(std::uint8_t type, std::uint8_t button);

  const std::unique_ptr<linux_desktop::X11Connection> connection_;
};

}  // namespace norra::benchmarks
