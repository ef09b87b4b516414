#include <gmock/gmock.h>
#include <unistd.h>
#include <xcb/shape.h>

#include <csignal>

#include "Platform/Linux/x11/X11Windows.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace norra::linux_desktop {
namespace {

class X11WindowsTest : public testing::Test {
 protected:
  PrivateDisplay display;
  const std::unique_ptr<X11Connection> client = display.connect();
  X11Windows windows{display.connect(), display.connect()};

  std::uint32_t windowAt(double x, double y) {
    const auto found = windows.topLevelWindowAt({x, y});
    return found ? found->window : 0;
  }
};

TEST_F(X11WindowsTest, FindTheTopmostWindowUnderAPoint) {
  const TestWindow lower(*client, {.x = 10, .y = 10, .width = 100, .height = 100});
  const TestWindow upper(*client, {.x = 50, .y = 50, .width = 100, .height = 100});
  EXPECT_EQ(windowAt(20, 20), lower.get());
  EXPECT_EQ(windowAt(60, 60), upper.get());
  EXPECT_EQ(windowAt(149.9, 149.9), upper.get());
  EXPECT_EQ(windowAt(500, 500), 0);
  EXPECT_EQ(windowAt(-5, 1e9), 0);
}

TEST_F(X11WindowsTest, FindWhatLayUnderTheMenuThatAPressOpened) {
  const TestWindow below(*client, {.x = 10, .y = 10, .width = 100, .height = 100});
  windows.notePress(CGPoint{20, 20});
  const TestWindow menu(*client, {.x = 15, .y = 15, .width = 50, .height = 80, .overrideRedirect = true});
  EXPECT_EQ(windowAt(21, 19), below.get());
  EXPECT_EQ(windowAt(20, 60), menu.get()) << "the pointer went on into the menu";
  windows.notePress(std::nullopt);
  EXPECT_EQ(windowAt(21, 19), menu.get());
}

TEST_F(X11WindowsTest, FindTheMenuThatTheReleaseClosed) {
  const TestWindow below(*client, {.x = 10, .y = 10, .width = 100, .height = 100});
  std::uint32_t closed = 0;
  {
    const TestWindow menu(*client, {.x = 15, .y = 15, .width = 50, .height = 80, .overrideRedirect = true});
    windows.notePress(CGPoint{20, 20});
    closed = menu.get();
  }
  settle(*client);
  EXPECT_EQ(windowAt(21, 19), closed);
  EXPECT_EQ(windowAt(80, 80), below.get());
}

TEST_F(X11WindowsTest, TellWhatIsKnownOfAWindow) {
  TestWindow window(*client, {.x = 30, .y = 40, .width = 300, .height = 200, .title = "Fallback"});
  window.set(X11Atom::gtkFrameExtents, {1, 2, 3, 4});
  auto found = windows.topLevelWindowAt({31, 41});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->process, getpid());
  EXPECT_EQ(found->frame, (ScreenRectangle{30, 40, 300, 200}));
  EXPECT_EQ(found->client, (ScreenRectangle{30, 40, 300, 200}));
  EXPECT_EQ(found->shadow, (ShadowExtents{1, 2, 3, 4}));
  EXPECT_EQ(found->title, "Fallback");
  EXPECT_FALSE(found->overrideRedirect);
  window.set(X11Atom::netWindowManagerName, client->atom(X11Atom::utf8String), "Tür");
  EXPECT_EQ(windows.topLevelWindowAt({31, 41})->title, "Tür");
}

TEST_F(X11WindowsTest, ReadOldTitlesAsLatin1) {
  const TestWindow window(*client, {.title = "T\xFCr"});
  EXPECT_EQ(windows.topLevelWindowAt({1, 1})->title, "Tür");
}

TEST_F(X11WindowsTest, FindTheClientInItsFrame) {
  display.startWindowManager();
  const TestWindow window(*client, {.width = 300, .height = 200, .title = "Framed"});
  ASSERT_TRUE(waitUntil([&] { return windows.activeWindow().has_value(); }));
  const auto found = *windows.activeWindow();
  EXPECT_EQ(found.window, window.get());
  EXPECT_EQ(found.client.width, 300);
  EXPECT_LT(found.frame.y, found.client.y);
  EXPECT_GE(found.frame.width, found.client.width);
  EXPECT_EQ(windowAt(found.client.x + 5, found.client.y + 5), window.get());
  EXPECT_EQ(windowAt(found.client.x + 5, found.frame.y + 3), window.get()) << "in the title bar";
}

TEST_F(X11WindowsTest, FindMenusAboveTheWindowThatOpenedThem) {
  display.startWindowManager();
  const TestWindow window(*client, {.width = 300, .height = 200});
  ASSERT_TRUE(waitUntil([&] { return windows.activeWindow().has_value(); }));
  const auto place = windows.activeWindow()->client;
  const TestWindow menu(*client, {.x = static_cast<std::int16_t>(place.x + 10),
                                  .y = static_cast<std::int16_t>(place.y + 10),
                                  .width = 50,
                                  .height = 50,
                                  .overrideRedirect = true});
  const auto found = windows.topLevelWindowAt({place.x + 20, place.y + 20});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->window, menu.get());
  EXPECT_TRUE(found->overrideRedirect);
  EXPECT_EQ(windowAt(place.x + 100, place.y + 100), window.get());
}

TEST_F(X11WindowsTest, LookThroughWindowsThatLetThePointerThrough) {
  const TestWindow window(*client, {});
  const TestWindow overlay(*client, {.overrideRedirect = true});
  EXPECT_EQ(windowAt(50, 50), overlay.get());
  xcb_shape_rectangles(client->get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, overlay.get(),
                       0, 0, 0, nullptr);
  settle(*client);
  EXPECT_EQ(windowAt(50, 50), window.get());
}

TEST_F(X11WindowsTest, FollowTheInputFocusWithoutAWindowManager) {
  EXPECT_FALSE(windows.hasWindowManager());
  EXPECT_EQ(windows.activeWindow(), std::nullopt);
  const TestWindow window(*client, {.className = "Focused"});
  xcb_set_input_focus(client->get(), XCB_INPUT_FOCUS_PARENT, window.get(), XCB_CURRENT_TIME);
  settle(*client);
  EXPECT_EQ(windows.activeWindow()->window, window.get());
  EXPECT_EQ(windows.activeApplication()->className, "Focused");
}

TEST_F(X11WindowsTest, DoNotTrustAWindowManagerThatHasGone) {
  display.startWindowManager();
  EXPECT_TRUE(windows.hasWindowManager());
  display.endWindowManager();
  EXPECT_TRUE(waitUntil([&] { return !windows.hasWindowManager(); }));
}

TEST_F(X11WindowsTest, TellTheApplicationOfAProcess) {
  TestWindow window(*client, {.instanceName = "main", .className = "Mail"});
  window.set(X11Atom::gtkApplicationIdentifier, client->atom(X11Atom::utf8String), "org.example.Mail");
  const auto application = windows.applicationOf(getpid());
  ASSERT_TRUE(application);
  EXPECT_EQ(application->window, window.get());
  EXPECT_EQ(application->instanceName, "main");
  EXPECT_EQ(application->className, "Mail");
  EXPECT_EQ(application->gtkApplicationIdentifier, "org.example.Mail");
  EXPECT_EQ(windows.applicationOf(1), std::nullopt);
}

TEST_F(X11WindowsTest, SurviveWindowsThatVanish) {
  for (int i = 0; i < 50; ++i) {
    {
      const TestWindow window(*client, {});
      xcb_destroy_window(client->get(), window.get());
      windows.topLevelWindowAt({50, 50});
    }
    EXPECT_EQ(windowAt(50, 50), 0);
  }
}

TEST_F(X11WindowsTest, GiveNothingWhileTheServerDoesNotAnswerAndAfterItHasGone) {
  const TestWindow window(*client, {});
  display.server().signal(SIGSTOP);
  EXPECT_EQ(windowAt(50, 50), 0);
  EXPECT_EQ(windows.activeWindow(), std::nullopt);
  display.server().signal(SIGCONT);
  EXPECT_TRUE(waitUntil([&] { return windowAt(50, 50) == window.get(); }));
  display.server().signal(SIGKILL);
  EXPECT_TRUE(waitUntil([&] { return windowAt(50, 50) == 0; }));
}

}  // namespace
}  // namespace norra::linux_desktop
