#include "tests/Client/RunningProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

namespace norra {
namespace {

constexpr std::chrono::seconds limit{30};
constexpr int limitMilliseconds = 30'000;

std::array<int, 2> newPipe() {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) std::abort();
  return ends;
}

/// In the child.
[[noreturn]] void execute(const std::string& path, const std::vector<std::string>& arguments) {
  std::vector<char*> words{const_cast<char*>(path.c_str())};
  for (const auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  execv(path.c_str(), words.data());
  _exit(127);
}

}  // namespace

RunningProgram::RunningProgram(const std::string& name, const std::vector<std::string>& arguments) {
  const auto output = newPipe();
  const auto errors = newPipe();
  process_ = fork();
  if (process_ == 0) {
    dup2(output[1], STDOUT_FILENO);
    dup2(errors[1], STDERR_FILENO);
    execute(name.front() == '/' ? name : std::string(NORRA_PROGRAMS) + "/" + name, arguments);
  }
  close(output[1]);
  close(errors[1]);
  output_ = output[0];
  errors_ = errors[0];
}

RunningProgram::~RunningProgram() {
  signal(SIGKILL);
  if (process_ != 0) waitpid(process_, nullptr, 0);
  closeOutput();
  close(errors_);
}

std::optional<std::string> RunningProgram::nextLine() {
  std::string line;
  while (true) {
    pollfd readable{output_, POLLIN, 0};
    char character = 0;
    if (poll(&readable, 1, limitMilliseconds) <= 0 || read(output_, &character, 1) != 1) return std::nullopt;
    if (character == '\n') return line;
    line += character;
  }
}

void RunningProgram::closeOutput() {
  if (output_ >= 0) close(output_);
  output_ = -1;
}

void RunningProgram::signal(int number) const {
  if (process_ != 0) kill(process_, number);
}

std::optional<int> RunningProgram::waitForEnd() {
  int status = 0;
  if (!waitFor([&] { return waitpid(process_, &status, WNOHANG) == process_; })) return std::nullopt;
  process_ = 0;
  return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

std::string RunningProgram::errors() {
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t size = 0; (size = read(errors_, part.data(), part.size())) > 0;) {
    text.append(part.data(), static_cast<std::size_t>(size));
  }
  return text;
}

bool waitFor(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace norra
