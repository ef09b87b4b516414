// norra-report: makes a page to look at from a recorded session.
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "Report/ReportPage.h"

namespace {

namespace report = norra::report;

constexpr int unreadableLinesFound = 1;
constexpr int usageError = 2;
constexpr std::size_t maxLinesNamed = 20;

struct Arguments {
  std::string session;
  std::string output = "-";
  std::string title = "Recorded session";
  bool isStrict = false;
};

struct Reading {
  std::vector<report::RecordedReport> reports;
  std::size_t faults = 0;
};

int complain(const std::string& message) {
  std::cerr << "norra-report: " << message << '\n';
  return usageError;
}

int complainOf(const std::string& file, const std::string& problem) {
  const std::string reason = errno == 0 ? "" : std::string(": ") + std::strerror(errno);
  return complain(file + " " + problem + reason);
}

Reading readFrom(std::istream& lines, const Arguments& arguments) {
  Reading reading;
  const auto name = arguments.session == "-" ? "standard input" : arguments.session;
  reading.reports = report::readSession(lines, [&](const report::LineFault& fault) {
    if (++reading.faults <= maxLinesNamed) {
      complain(name + ", line " + std::to_string(fault.line) + ": " + fault.problem);
    }
    return arguments.isStrict ? report::AfterFault::end : report::AfterFault::goOn;
  });
  if (reading.faults > maxLinesNamed) {
    complain(name + ": lines that cannot be read besides: " + std::to_string(reading.faults - maxLinesNamed));
  }
  return reading;
}

report::PageHeading headingFor(const Arguments& arguments, const Reading& reading) {
  const auto source = arguments.session == "-" ? "" : std::filesystem::path(arguments.session).filename().string();
  return {arguments.title, source, reading.faults};
}

int write(std::ostream& out, const Arguments& arguments, const Reading& reading) {
  if (out) report::writeReportPage(out, headingFor(arguments, reading), reading.reports);
  if (!out.flush()) return complainOf(arguments.output, "cannot be written");
  return reading.faults == 0 ? 0 : unreadableLinesFound;
}

int writeReport(const Arguments& arguments, const Reading& reading) {
  errno = 0;
  if (arguments.output == "-") return write(std::cout, arguments, reading);
  std::ofstream file(arguments.output, std::ios::binary | std::ios::trunc);
  return write(file, arguments, reading);
}

int makeReport(std::istream& lines, const Arguments& arguments) {
  if (!lines) return complainOf(arguments.session, "cannot be read");
  const auto reading = readFrom(lines, arguments);
  if (lines.bad()) return complainOf(arguments.session, "cannot be read");
  if (arguments.isStrict && reading.faults > 0) return unreadableLinesFound;
  return writeReport(arguments, reading);
}

bool wouldOverwriteSession(const Arguments& arguments) {
  std::error_code noSuchFile;
  return arguments.session != "-" && arguments.output != "-" &&
         std::filesystem::equivalent(arguments.session, arguments.output, noSuchFile);
}

int run(const Arguments& arguments) {
  if (wouldOverwriteSession(arguments)) return complain(arguments.output + " is the session itself");
  errno = 0;
  if (arguments.session == "-") return makeReport(std::cin, arguments);
  std::ifstream file(arguments.session, std::ios::binary);
  return makeReport(file, arguments);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  umask(S_IRWXG | S_IRWXO);  // a page tells as much of a person as the session
  Arguments arguments;
  CLI::App app(
      "Makes one HTML page from a session that norra-collect recorded. The page needs no network. Lines that cannot be "
      "read are named on standard error and passed over; the exit status is then 1.",
      "norra-report");
  app.add_option("SESSION", arguments.session, "The session, one report a line; - for standard input")
      ->required()
      ->option_text(" ");
  app.add_option("-o,--output", arguments.output, "The page to write; - for standard output")->option_text("FILE");
  app.add_option("--title", arguments.title, "The page's title")->option_text("TEXT");
  app.add_flag("--strict", arguments.isStrict, "End at the first line that cannot be read, without a page");
  app.set_version_flag("--version", "norra-report " NORRA_VERSION);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  return run(arguments);
}
