// A program under test on a Linux desktop.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

namespace norra::conformance {

/// Runs application.py until its end.
class LinuxApplication {
 public:
  /// Returns when the window is there.
  explicit LinuxApplication(const std::string& title);
  ~LinuxApplication();
  LinuxApplication(const LinuxApplication&) = delete;
  LinuxApplication& operator=(const LinuxApplication&) = delete;

  pid_t process() const { return process_; }

  /// Has it do this and gives its answer; null, and a failure of the test, where none comes.
  nlohmann::json ask(const std::string& command, const nlohmann::json& argument = nullptr) const;

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  nlohmann::json readAnswer() const;

  pid_t process_ = -1;
  std::unique_ptr<std::FILE, CloseFile> channel_;  // its input and its output
};

}  // namespace norra::conformance
