#include "tests/Platform/Linux/PrivateDisplay.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <sstream>

namespace norra::linux_desktop {
namespace {

// The X server writes its number, and a line's end, when it is ready.
std::string numberFrom(int descriptor) {
  std::string number;
  for (char digit = 0; read(descriptor, &digit, 1) == 1 && digit != '\n';) number += digit;
  return number;
}

xcb_window_t newWindow(const X11Connection& connection, const TestWindowTraits& traits) {
  const auto window = xcb_generate_id(connection.get());
  const std::uint32_t overrideRedirect = traits.overrideRedirect ? 1 : 0;
  xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), traits.x, traits.y, traits.width,
                    traits.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                    &overrideRedirect);
  return window;
}

}  // namespace

ChildProgram::ChildProgram(const std::vector<std::string>& command, int descriptor) {
  std::vector<char*> arguments;
  for (const auto& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  if (descriptor >= 0) posix_spawn_file_actions_adddup2(&actions, descriptor, descriptor);
  const int error = posix_spawnp(&process_, arguments.front(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  EXPECT_EQ(error, 0) << command.front();
}

ChildProgram::~ChildProgram() {
  signal(SIGKILL);
  wait();
}

void ChildProgram::signal(int number) const {
  if (process_ > 0) kill(process_, number);
}

int ChildProgram::wait() {
  int status = 0;
  if (process_ > 0) waitpid(process_, &status, 0);
  process_ = -1;
  return status;
}

bool ChildProgram::hasEnded() const {
  siginfo_t info{};
  return waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == process_;
}

bool PrivateDisplay::isInstalled() { return std::system("command -v Xvfb > /dev/null") == 0; }

PrivateDisplay::PrivateDisplay() {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
  server_ =
      std::make_unique<ChildProgram>(std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen",
                                                              "0", "1280x900x24", "-nolisten", "tcp", "-noreset"},
                                     ends[1]);
  close(ends[1]);
  setenv("DISPLAY", (":" + numberFrom(ends[0])).c_str(), 1);
  close(ends[0]);
}

std::unique_ptr<X11Connection> PrivateDisplay::connect() const { return X11Connection::open(); }

void PrivateDisplay::startWindowManager() {
  windowManager_ = std::make_unique<ChildProgram>(std::vector<std::string>{"openbox", "--sm-disable"});
  // A window that is shown while it starts may never be managed.
  const auto connection = connect();
  const auto probe = newWindow(*connection, {});
  const auto isManaged = [&] {
    xcb_map_window(connection->get(), probe);
    const auto state = connection->askProperty(probe, X11Atom::windowManagerState);
    return !itemsOf(connection->await<&xcb_get_property_reply>(state)).empty();
  };
  EXPECT_TRUE(waitUntil(isManaged));
}

void PrivateDisplay::endWindowManager() { windowManager_.reset(); }

void serveWhile(sd_event* event, const std::string& command) {
  std::istringstream stream(command);
  const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
  ChildProgram program(words);
  EXPECT_TRUE(serveUntil(event, [&] { return program.hasEnded(); })) << command;
  EXPECT_EQ(program.wait(), 0) << command;
}

void settle(X11Connection& connection) {
  connection.await<&xcb_get_input_focus_reply>(xcb_get_input_focus(connection.get()));
}

TestWindow::TestWindow(X11Connection& connection, const TestWindowTraits& traits)
    : connection_(connection), window_(newWindow(connection, traits)) {
  set(X11Atom::windowManagerName, XCB_ATOM_STRING, traits.title);
  set(X11Atom::windowManagerClass, XCB_ATOM_STRING, traits.instanceName + '\0' + traits.className + '\0');
  xcb_map_window(connection.get(), window_);
  const auto isShown = [&] {
    const auto attributes =
        connection.await<&xcb_get_window_attributes_reply>(xcb_get_window_attributes(connection.get(), window_));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
  };
  EXPECT_TRUE(waitUntil(isShown));
}

TestWindow::~TestWindow() {
  xcb_destroy_window(connection_.get(), window_);
  settle(connection_);
}

void TestWindow::set(X11Atom property, xcb_atom_t type, const std::string& text) {
  xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, connection_.atom(property), type, 8,
                      static_cast<std::uint32_t>(text.size()), text.data());
  settle(connection_);
}

void TestWindow::set(X11Atom property, const std::vector<std::uint32_t>& items) {
  xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, connection_.atom(property), XCB_ATOM_CARDINAL,
                      32, static_cast<std::uint32_t>(items.size()), items.data());
  settle(connection_);
}

}  // namespace norra::linux_desktop
