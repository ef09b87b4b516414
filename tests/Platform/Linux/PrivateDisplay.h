// An X server of its own for a test, with a user's hands on it.
#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

#include "Platform/Linux/x11/X11Connection.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {

/// A program that ends with its owner at the latest.
class ChildProgram {
 public:
  /// `descriptor`, if it is not negative, stays open in the program under the same number.
  explicit ChildProgram(const std::vector<std::string>& command, int descriptor = -1);
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  pid_t process() const { return process_; }
  void signal(int number) const;
  /// Waits for the program's own end and gives its exit status.
  int wait();
  /// Whether it has ended by itself; wait() tells how.
  bool hasEnded() const;

 private:
  pid_t process_ = -1;
};

/// Sets DISPLAY for the test program and those that it starts.
class PrivateDisplay {
 public:
  static bool isInstalled();
  PrivateDisplay();

  std::unique_ptr<X11Connection> connect() const;
  ChildProgram& server() { return *server_; }

  /// Returns when the window manager is at work.
  void startWindowManager();
  void endWindowManager();

 private:
  std::unique_ptr<ChildProgram> server_;
  std::unique_ptr<ChildProgram> windowManager_;
};

/// Runs a command line such as xdotool's to its end while the loop's sources are served; a failure of it fails the
/// test.
void serveWhile(sd_event* event, const std::string& command);

/// Returns when the server has done all that was asked of it on this connection.
void settle(X11Connection& connection);

/// What a window is made with.
struct TestWindowTraits {
  std::int16_t x = 0;
  std::int16_t y = 0;
  std::uint16_t width = 100;
  std::uint16_t height = 100;
  std::string title = {};
  std::string instanceName = {};
  std::string className = {};
  bool overrideRedirect = false;
};

/// A window of the test program; shown when it is made, gone with its owner.
class TestWindow {
 public:
  TestWindow(X11Connection& connection, const TestWindowTraits& traits);
  ~TestWindow();
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  xcb_window_t get() const { return window_; }
  void set(X11Atom property, xcb_atom_t type, const std::string& text);
  void set(X11Atom property, const std::vector<std::uint32_t>& items);

 private:
  X11Connection& connection_;
  xcb_window_t window_;
};

}  // namespace norra::linux_desktop
