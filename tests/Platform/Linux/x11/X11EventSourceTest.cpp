#include <gmock/gmock.h>
#include <poll.h>
#include <sys/eventfd.h>

#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/x11/X11EventSource.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace norra::linux_desktop {
namespace {

int countCall(sd_event_source* /*source*/, int /*descriptor*/, std::uint32_t /*events*/, void* count) noexcept {
  ++*static_cast<int*>(count);
  return 0;
}

// Events that were read while an answer was awaited lie in the connection's own queue.
TEST(X11EventSource, HasItsTurnAndNoMoreHoweverManyEventsWait) {
  if (!PrivateDisplay::isInstalled()) GTEST_SKIP() << "no Xvfb";
  constexpr int changes = 100;
  PrivateDisplay display;
  EventLoop loop;
  const auto connection = display.connect();
  int handled = 0;
  X11EventSource source(
      loop.event(), *connection, [&](const auto&) { ++handled; }, [] {});
  const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection->get(), connection->root(), XCB_CW_EVENT_MASK, &mask);
  for (int i = 0; i < changes; ++i) {
    xcb_change_property(connection->get(), XCB_PROP_MODE_REPLACE, connection->root(), XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                        8, 1, "x");
  }
  settle(*connection);
  int turnsOfAnother = 0;
  sd_event_source* another = nullptr;
  const int readable = eventfd(1, EFD_CLOEXEC);
  sd_event_add_io(loop.event(), &another, readable, POLLIN, countCall, &turnsOfAnother);
  const EventSourcePtr owner(another);
  sd_event_source_set_io_fd_own(another, 1);
  ASSERT_TRUE(serveUntil(loop.event(), [&] { return handled == changes; }));
  EXPECT_GE(turnsOfAnother, changes / 2);
}

}  // namespace
}  // namespace norra::linux_desktop
