#include "tests/conformance/LinuxApplication.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace norra::conformance {
namespace {

struct Pipe {
  Pipe() { EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0); }
  std::array<int, 2> ends{};
};

[[noreturn]] void become(const std::string& title, int input, int output) {
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  execl(NORRA_TEST_APPLICATION, NORRA_TEST_APPLICATION, title.c_str(), nullptr);
  _exit(127);
}

}  // namespace

LinuxApplication::LinuxApplication(const std::string& title) {
  const Pipe commands;
  const Pipe answers;
  process_ = fork();
  if (process_ == 0) become(title, commands.ends[0], answers.ends[1]);
  close(commands.ends[0]);
  close(answers.ends[1]);
  commands_.reset(fdopen(commands.ends[1], "w"));
  answers_.reset(fdopen(answers.ends[0], "r"));
  EXPECT_EQ(readAnswer(), "ready") << title;
}

LinuxApplication::~LinuxApplication() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

nlohmann::json LinuxApplication::ask(const std::string& command, const nlohmann::json& argument) const {
  std::fprintf(commands_.get(), "%s\n", nlohmann::json{{command, argument}}.dump().c_str());
  std::fflush(commands_.get());
  return readAnswer();
}

nlohmann::json LinuxApplication::readAnswer() const {
  std::string line;
  for (int character = 0; (character = std::fgetc(answers_.get())) != EOF && character != '\n';) {
    line += static_cast<char>(character);
  }
  EXPECT_NE(line, "") << "the application has ended";
  return line.empty() ? nullptr : nlohmann::json::parse(line);
}

}  // namespace norra::conformance
