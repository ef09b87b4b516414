#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>

#include "Platform/Linux/runtime/DeferredRun.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/x11/X11Workspace.h"
#include "tests/Platform/Linux/PrivateDisplay.h"
#include "tests/RecordingSink.h"

namespace norra::linux_desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class X11WorkspaceTest : public testing::Test {
 protected:
  void open() { workspace = std::make_unique<X11Workspace>(loop.event(), display.connect(), windows); }

  void listen() {
    registration = workspace->onActivation([this](const auto& application) { seen.push_back(application); });
  }

  bool serve(const std::function<bool()>& condition) { return serveUntil(loop.event(), condition); }

  void activate(const TestWindow& window) {
    serveWhile(loop.event(), "xdotool windowactivate --sync " + std::to_string(window.get()));
  }

  RecordingSink log;
  EventLoop loop;
  PrivateDisplay display;
  const std::unique_ptr<X11Connection> client = display.connect();
  X11Windows windows{display.connect(), display.connect()};
  std::unique_ptr<X11Workspace> workspace;
  std::vector<std::optional<NSRunningApplication>> seen;
  std::unique_ptr<Registration> registration;
};

TEST_F(X11WorkspaceTest, TellsOfEveryActivation) {
  display.startWindowManager();
  const TestWindow first(*client, {.className = "First"});
  const TestWindow second(*client, {.className = "Second"});
  ASSERT_TRUE(waitUntil([&] { return windows.activeApplication().has_value(); }));
  open();
  activate(first);
  activate(second);
  listen();
  activate(first);
  ASSERT_TRUE(serve([&] { return seen.size() == 1; }));
  activate(second);
  ASSERT_TRUE(serve([&] { return seen.size() == 2; }));
  for (const auto& application : seen) EXPECT_EQ(application->processIdentifier, getpid());
  EXPECT_THAT(log.texts(LogLevel::error), IsEmpty());
}

TEST_F(X11WorkspaceTest, TellsOfANewWindowWhenItsTitleStands) {
  display.startWindowManager();
  const TestWindow first(*client, {.className = "First"});
  ASSERT_TRUE(waitUntil([&] { return windows.activeApplication().has_value(); }));
  open();
  std::vector<std::string> titles;
  registration = workspace->onActivation([&](const auto&) { titles.push_back(windows.activeWindow()->title); });
  TestWindow late(*client, {.title = "Loading", .className = "Late"});
  activate(late);
  late.set(X11Atom::windowManagerName, XCB_ATOM_STRING, "Harbour ledger");
  ASSERT_TRUE(serve([&] { return !titles.empty(); }));
  EXPECT_THAT(titles, ElementsAre("Harbour ledger"));
}

TEST_F(X11WorkspaceTest, TellsOfANewWindowWhenItIsCalledByMoreThanItsApplication) {
  display.startWindowManager();
  const TestWindow first(*client, {.className = "First"});
  ASSERT_TRUE(waitUntil([&] { return windows.activeApplication().has_value(); }));
  open();
  std::vector<std::string> titles;
  registration = workspace->onActivation([&](const auto&) { titles.push_back(windows.activeWindow()->title); });
  TestWindow late(*client, {.title = "Harbour Browser", .className = "browser-esr"});
  DeferredRun load(loop.event(), [&] { late.set(X11Atom::windowManagerName, XCB_ATOM_STRING, "Tides - Browser"); });
  load.requestAfter(400'000);
  activate(late);
  ASSERT_TRUE(serve([&] { return !titles.empty(); }));
  EXPECT_THAT(titles, ElementsAre("Tides - Browser"));
}

TEST_F(X11WorkspaceTest, TellsOfAnApplicationWithoutADesktopFile) {
  display.startWindowManager();
  const TestWindow window(*client, {.className = "No-such-file"});
  ASSERT_TRUE(waitUntil([&] { return windows.activeApplication().has_value(); }));
  open();
  const auto application = workspace->frontmostApplication();
  ASSERT_TRUE(application);
  EXPECT_EQ(application->processIdentifier, getpid());
  EXPECT_EQ(application->bundleIdentifier, std::nullopt);
  EXPECT_EQ(application->localizedName, "No-such-file");
  ASSERT_TRUE(application->executableURL);
  EXPECT_EQ(application->executableURL->absoluteString,
            "file://" + std::filesystem::read_symlink("/proc/self/exe").string());
}

TEST_F(X11WorkspaceTest, KnowsProcessesWithoutAWindow) {
  open();
  const auto server = workspace->runningApplication(display.server().process());
  ASSERT_TRUE(server);
  EXPECT_EQ(server->processIdentifier, display.server().process());
  EXPECT_THAT(server->executableURL->absoluteString, testing::EndsWith("/Xvfb"));
  auto ended = std::make_unique<ChildProgram>(std::vector<std::string>{"sleep", "1000"});
  const auto process = ended->process();
  EXPECT_TRUE(workspace->runningApplication(process));
  ended->signal(SIGKILL);
  EXPECT_TRUE(waitUntil([&] { return ended->hasEnded(); }));
  EXPECT_EQ(workspace->runningApplication(process), std::nullopt) << "although its parent has not asked for it";
  ended.reset();
  EXPECT_EQ(workspace->runningApplication(process), std::nullopt);
}

TEST_F(X11WorkspaceTest, SaysWhenNoWindowManagerIsThereAndWhenOneComesBack) {
  open();
  EXPECT_THAT(log.texts(LogLevel::error), ElementsAre(HasSubstr("No window manager")));
  display.startWindowManager();
  ASSERT_TRUE(serve([&] { return log.texts(LogLevel::info).size() == 1; }));
  display.endWindowManager();
  ASSERT_TRUE(serve([&] { return log.texts(LogLevel::error).size() == 2; }));
  display.startWindowManager();
  const TestWindow first(*client, {.className = "First"});
  const TestWindow second(*client, {.className = "Second"});
  listen();
  activate(first);
  activate(second);
  activate(first);
  EXPECT_TRUE(serve([&] { return seen.size() >= 2; }));
  EXPECT_EQ(log.texts(LogLevel::info).size(), 2);
}

TEST_F(X11WorkspaceTest, SaysOnceThatTheServerHasGone) {
  display.startWindowManager();
  open();
  display.server().signal(SIGKILL);
  ASSERT_TRUE(serve([&] { return !log.texts(LogLevel::error).empty(); }));
  EXPECT_THAT(log.texts(LogLevel::error), ElementsAre(HasSubstr("The X server has gone")));
  EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
  EXPECT_TRUE(workspace->runningApplication(getpid()));
}

}  // namespace
}  // namespace norra::linux_desktop
