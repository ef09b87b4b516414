// A program of the build, started by a test.
#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace norra {

/// Killed at its end if it still runs.
class RunningProgram {
 public:
  /// Of the folder of built programs, unless the name is a path. Standard output and standard error are read.
  explicit RunningProgram(const std::string& name, const std::vector<std::string>& arguments = {});
  ~RunningProgram();
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  /// The next line of standard output; nothing at its end or when none comes within a generous limit.
  std::optional<std::string> nextLine();
  /// Stops reading standard output for good.
  void closeOutput();
  void signal(int number) const;

  /// The exit status; nothing when the program does not end within a generous limit or was killed by a signal.
  std::optional<int> waitForEnd();
  /// All of standard error. After the end.
  std::string errors();

 private:
  pid_t process_ = 0;
  int output_ = -1;
  int errors_ = -1;
};

/// Asks again and again until the condition holds; false when it does not within a generous limit.
bool waitFor(const std::function<bool()>& condition);

}  // namespace norra
