#include "benchmarks/desktop/Hands.h"

#include <xcb/xtest.h>

#include <thread>

namespace norra::benchmarks {
namespace {

constexpr std::uint8_t leftButton = 1;
// As a person does.
constexpr std::chrono::milliseconds press{80};

}  // namespace

Hands::TimePoint Hands::click() {
  if (!connection_) return std::chrono::steady_clock::now();
  fake(XCB_BUTTON_PRESS, leftButton);
  std::this_thread::sleep_for(press);
  const auto now = std::chrono::steady_clock::now();
  fake(XCB_BUTTON_RELEASE, leftButton);
  return now;
}

void Hands::fake(std::uint8_t type, std::uint8_t button) {
  xcb_test_fake_input(connection_->get(), type, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  xcb_flush(connection_->get());
}

}  // namespace norra::benchmarks
