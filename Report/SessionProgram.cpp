#include "Report/SessionProgram.h"

#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace norra::report {
namespace {

constexpr int unreadableLinesFound = 1;
constexpr int usageError = 2;
constexpr std::size_t maxLinesNamed = 20;

class SessionProgram {
 public:
  SessionProgram(std::string name, const SessionArguments& arguments, const SessionWriter& write)
      : name_(std::move(name)), arguments_(arguments), write_(write) {}

  int run() const {
    if (wouldOverwriteSession()) return complain(arguments_.output + " is the session itself");
    errno = 0;
    if (arguments_.session == "-") return makeFileOf(std::cin);
    std::ifstream file(arguments_.session, std::ios::binary);
    return makeFileOf(file);
  }

 private:
  int complain(const std::string& message) const {
    std::cerr << name_ << ": " << message << '\n';
    return usageError;
  }

  int complainOf(const std::string& file, const std::string& problem) const {
    const std::string reason = errno == 0 ? "" : std::string(": ") + std::strerror(errno);
    return complain(file + " " + problem + reason);
  }

  SessionContent readFrom(std::istream& lines) const {
    SessionContent content;
    if (arguments_.session != "-") content.source = std::filesystem::path(arguments_.session).filename().string();
    const auto name = arguments_.session == "-" ? "standard input" : arguments_.session;
    content.reports = readSession(lines, [&](const LineFault& fault) {
      if (++content.unreadableLines <= maxLinesNamed) {
        complain(name + ", line " + std::to_string(fault.line) + ": " + fault.problem);
      }
      return arguments_.isStrict ? AfterFault::end : AfterFault::goOn;
    });
    if (content.unreadableLines > maxLinesNamed) {
      complain(name +
               ": lines that cannot be read besides: " + std::to_string(content.unreadableLines - maxLinesNamed));
    }
    return content;
  }

  int writeTo(std::ostream& out, const SessionContent& content) const {
    if (out) write_(out, content);
    if (!out.flush()) return complainOf(arguments_.output, "cannot be written");
    return content.unreadableLines == 0 ? 0 : unreadableLinesFound;
  }

  int writeFile(const SessionContent& content) const {
    errno = 0;
    if (arguments_.output == "-") return writeTo(std::cout, content);
    std::ofstream file(arguments_.output, std::ios::binary | std::ios::trunc);
    return writeTo(file, content);
  }

  int makeFileOf(std::istream& lines) const {
    if (!lines) return complainOf(arguments_.session, "cannot be read");
    const auto content = readFrom(lines);
    if (lines.bad()) return complainOf(arguments_.session, "cannot be read");
    if (arguments_.isStrict && content.unreadableLines > 0) return unreadableLinesFound;
    return writeFile(content);
  }

  bool wouldOverwriteSession() const {
    std::error_code noSuchFile;
    return arguments_.session != "-" && arguments_.output != "-" &&
           std::filesystem::equivalent(arguments_.session, arguments_.output, noSuchFile);
  }

  const std::string name_;
  const SessionArguments& arguments_;
  const SessionWriter& write_;
};

}  // namespace

void addSessionOptions(CLI::App& app, SessionArguments& arguments, const std::string& product) {
  app.add_option("SESSION", arguments.session, "The session, one report a line; - for standard input")
      ->required()
      ->option_text(" ");
  app.add_option("-o,--output", arguments.output, "The " + product + " to write; - for standard output")
      ->option_text("FILE");
  app.add_flag("--strict", arguments.isStrict, "End at the first line that cannot be read, without a " + product);
  app.set_version_flag("--version", app.get_name() + " " NORRA_VERSION);
}

int runSessionProgram(CLI::App& app, int argc, char** argv, const SessionArguments& arguments,
                      const SessionWriter& write) {
  std::ios::sync_with_stdio(false);
  umask(S_IRWXG | S_IRWXO);  // what is made tells as much of a person as the session
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  return SessionProgram(app.get_name(), arguments, write).run();
}

}  // namespace norra::report
