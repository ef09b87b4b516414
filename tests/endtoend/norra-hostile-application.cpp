// norra-hostile-application: names its faults, one a line.
// norra-hostile-application FAULT [NUMBER]: one window, over a button that the accessibility bus calls "Reef", and one
// fault. "none" is none; "ends" and "stops" happen at the call of that number, from the first click on. Says "ready",
// tells for each line of its input how many calls it has received, and ends with its input.
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/Platform/Linux/HostileFaults.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace {

using namespace norra::linux_desktop;

constexpr TestWindowTraits traits{.x = 100, .y = 100, .width = 300, .height = 200};

void say(const std::string& word) {
  std::puts(word.c_str());
  std::fflush(stdout);
}

void answerLines(const FakeApplication& application) {
  for (int character = std::getchar(); character != EOF; character = std::getchar()) {
    if (character == '\n') say(std::to_string(application.received()));
  }
}

void signalAtCall(FakeApplication& application, int signalNumber, int number) {
  application.atEachCall([=, count = 0](const std::string& member) mutable {
    if (count > 0 || member == "GetAccessibleAtPoint") ++count;
    if (count == number) kill(getpid(), signalNumber);
  });
}

std::shared_ptr<void> begin(FakeApplication& application, std::string_view fault, int number) {
  if (fault == "ends") signalAtCall(application, SIGKILL, number);
  if (fault == "stops") signalAtCall(application, SIGSTOP, number);
  for (const auto& known : hostileFaults()) {
    if (known.name == fault) return known.begin(application);
  }
  return nullptr;
}

int nameFaults() {
  for (const auto& fault : hostileFaults()) say(fault.name);
  return 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 2) return nameFaults();
  const auto connection = X11Connection::open();
  if (!connection) return 2;
  FakeApplication application;
  showReef(application);
  auto window = traits;
  window.title = arguments[1];
  TestWindow shown(*connection, window);
  shown.set(X11Atom::netWindowManagerProcess, {static_cast<std::uint32_t>(getpid())});
  const auto fault = begin(application, arguments[1], argumentCount > 2 ? std::atoi(arguments[2]) : 0);
  say("ready");
  answerLines(application);
}
