// norra-collect: collects from this desktop and prints each report as one line.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>

#include "Client/Collection.h"
#include "Client/ReaderWatch.h"
#include "Client/ReportFormat.h"

namespace {

constexpr const char* description =
    "Collects what is done in the applications of this desktop, and prints each report as one line until Ctrl-C.";
constexpr const char* footer =
    "Exit status: 0 after the service's last report, 1 when the service cannot be reached, 2 for a wrong use, 3 when "
    "the "
    "collection ended before it was stopped.";
constexpr int wrongUse = 2;

struct Options {
  std::string format = norra::formatNames().front();
  std::optional<double> seconds;
};

/// Writes the line at once. False: it could not.
bool writeLine(const std::string& line) { return std::puts(line.c_str()) >= 0 && std::fflush(stdout) == 0; }

bool mayUseColor() { return isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr; }

int collect(const Options& options) {
  std::signal(SIGPIPE, SIG_IGN);
  const auto format = norra::newFormatter(options.format, {.usesColor = mayUseColor()});
  norra::linux_desktop::EventLoop loop;
  norra::Collection collection(
      loop,
      {.report = [&](const norra::Report& report) { return writeLine(format(report)); },
       .problem = [](const std::string& problem) { std::fprintf(stderr, "norra-collect: %s\n", problem.c_str()); }});
  const norra::ReaderWatch watch(loop, STDOUT_FILENO, [&] { collection.outputClosed(); });
  std::optional<std::chrono::nanoseconds> duration;
  if (options.seconds) {
    duration = std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(*options.seconds));
  }
  return static_cast<int>(collection.run(duration));
}

}  // namespace

int main(int argumentCount, char** arguments) {
  Options options;
  CLI::App app(description, "norra-collect");
  app.footer(footer);
  app.set_version_flag("--version", "norra-collect " NORRA_VERSION);
  app.add_option("--format", options.format, "How a report is printed")
      ->check(CLI::IsMember(norra::formatNames()))
      ->capture_default_str();
  app.add_option("--duration", options.seconds, "Stop after this many seconds")->check(CLI::Range(0.0, 1e9));
  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : wrongUse;
  }
  return collect(options);
}
