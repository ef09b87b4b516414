// norra-collect: collects from this desktop and prints each report as one line.
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "Client/CollectOptions.h"
#include "Client/DesktopCheck.h"
#include "Client/PauseControl.h"
#include "Client/ReportOutput.h"
#include "Client/StatisticsView.h"

namespace {

void tell(const std::string& text) { std::fprintf(stderr, "norra-collect: %s\n", text.c_str()); }

int check() {
  norra::linux_desktop::EventLoop loop;
  const auto findings = norra::checkDesktop(loop);
  std::fputs(norra::textOf(findings).c_str(), stdout);
  return norra::isReady(findings) ? 0 : 1;
}

int showStatistics() {
  norra::linux_desktop::EventLoop loop;
  const auto found = norra::readStatistics(loop);
  if (const auto* none = std::get_if<norra::NoStatistics>(&found)) {
    tell(none->problem);
    return 1;
  }
  std::fputs(norra::textOf(std::get<norra::ServiceStatistics>(found)).c_str(), stdout);
  return 0;
}

/// A collection that sees nothing looks like a person who does nothing, so what is missing is said at once.
void tellShortcomings(norra::linux_desktop::EventLoop& loop) {
  const auto found = norra::readStatistics(loop);
  const auto* statistics = std::get_if<norra::ServiceStatistics>(&found);
  if (statistics == nullptr) return;
  auto shortcomings = norra::shortcomingsIn(*statistics);
  if (statistics->accessibility.empty()) {  // perhaps only since it has not been needed yet
    const auto advice = norra::linux_desktop::accessibilityReadiness(loop.event()).advice;
    if (!advice.empty()) shortcomings.push_back(advice);
  }
  for (const auto& shortcoming : shortcomings) tell(shortcoming);
  if (!shortcomings.empty()) tell("What is missing, and what to do: norra-collect --check");
}

/// Whoever looks at a terminal sees no reports there when they go into a file.
void tellOfFile(const std::string& file) {
  if (!file.empty() && isatty(STDERR_FILENO) != 0) tell("Collecting into " + file + ". Ctrl-C ends.");
}

norra::OutputOptions outputOptions(const norra::CollectOptions& options, int descriptor) {
  const bool isTerminal = isatty(descriptor) != 0;
  return {.format = !options.format.empty() ? options.format
                    : isTerminal            ? "text"
                                            : "jsonl",
          .formatting = {.usesColor = isTerminal && std::getenv("NO_COLOR") == nullptr},
          .name = options.outputFile.empty() ? "Standard output" : options.outputFile,
          .wanted = options.wanted,
          .count = options.count};
}

int collectInto(int descriptor, const norra::CollectOptions& options) {
  norra::linux_desktop::EventLoop loop;
  norra::ReportOutput output(descriptor, outputOptions(options, descriptor), tell);
  const auto started = [&] {
    tellOfFile(options.outputFile);
    tellShortcomings(loop);
  };
  norra::Collection collection(loop, {.report = [&](const norra::Report& report) { return output.print(report); },
                                      .message = tell,
                                      .started = started});
  const norra::ReaderWatch watch(loop, descriptor, [&] { collection.outputClosed(); });
  const norra::PauseControl control(loop, {.toggle = [&] { collection.setPaused(!collection.isPaused()); },
                                           .pause = [&] { collection.setPaused(true); },
                                           .resume = [&] { collection.setPaused(false); }});
  const auto outcome = collection.run(options.duration);
  const bool isWritten = output.end();
  return static_cast<int>(outcome == norra::Outcome::complete && !isWritten ? norra::Outcome::endedEarly : outcome);
}

int collect(const norra::CollectOptions& options) {
  std::signal(SIGPIPE, SIG_IGN);
  if (options.outputFile.empty()) return collectInto(STDOUT_FILENO, options);
  const auto [file, problem] = norra::LineWriter::open(options.outputFile);
  if (file >= 0) return collectInto(file, options);
  tell(problem);
  return static_cast<int>(norra::Outcome::endedEarly);
}

}  // namespace

int main(int argc, char** argv) {
  const auto parsed = norra::parseCollectOptions(argc, argv);
  if (const auto* status = std::get_if<int>(&parsed)) return *status;
  const auto& options = std::get<norra::CollectOptions>(parsed);
  if (options.showsStatistics) return showStatistics();
  return options.checks ? check() : collect(options);
}
