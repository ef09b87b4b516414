#include "tests/conformance/LinuxApplication.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace norra::conformance {

LinuxApplication::LinuxApplication(const std::string& title) {
  std::array<int, 2> ends{};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
  process_ = fork();
  if (process_ == 0) {
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO}) dup2(ends[1], standard);
    execl(NORRA_TEST_APPLICATION, NORRA_TEST_APPLICATION, title.c_str(), nullptr);
    _exit(127);
  }
  close(ends[1]);
  channel_.reset(fdopen(ends[0], "r"));
  EXPECT_EQ(readAnswer(), "ready") << title;
}

LinuxApplication::~LinuxApplication() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

nlohmann::json LinuxApplication::ask(const std::string& command, const nlohmann::json& argument) const {
  dprintf(fileno(channel_.get()), "%s\n", nlohmann::json{{command, argument}}.dump().c_str());
  return readAnswer();
}

nlohmann::json LinuxApplication::readAnswer() const {
  std::string line;
  for (int character = 0; (character = std::fgetc(channel_.get())) != EOF && character != '\n';) {
    line += static_cast<char>(character);
  }
  EXPECT_NE(line, "") << "the application has ended";
  return line.empty() ? nullptr : nlohmann::json::parse(line);
}

}  // namespace norra::conformance
