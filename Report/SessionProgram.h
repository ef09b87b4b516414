// What the programs that make one file of a recorded session have in common: their arguments, what they say of lines
// that cannot be read, and their exit statuses.
#pragma once

#include <CLI/App.hpp>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "Report/SessionReading.h"

namespace norra::report {

struct SessionArguments {
  std::string session;
  std::string output = "-";
  bool isStrict = false;
};

struct SessionContent {
  /// The session's file name; empty for standard input.
  std::string source;
  std::vector<RecordedReport> reports;
  std::size_t unreadableLines = 0;
};

using SessionWriter = std::function<void(std::ostream& out, const SessionContent& content)>;

/// `product` is what is made of a session, such as "page". `arguments` outlives the app.
void addSessionOptions(CLI::App& app, SessionArguments& arguments, const std::string& product);

/// Parses, then reads the session and has it written. The exit status; what goes wrong is said on standard error in the
/// app's name, without any value of the session. A new file is for its owner alone.
int runSessionProgram(CLI::App& app, int argc, char** argv, const SessionArguments& arguments,
                      const SessionWriter& write);

}  // namespace norra::report
