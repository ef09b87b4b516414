// norra-scenario: plays a scenario file through the whole service, or reads reports back.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <sstream>

#include "ScenarioPlayer/ReportDecoding.h"
#include "ScenarioPlayer/ScenarioFile.h"
#include "ScenarioPlayer/ScenarioPlayer.h"

namespace {

namespace scenario = norra::scenario;

constexpr int usageError = 2;

struct Arguments {
  std::string file;
  bool decodes = false;
  scenario::PlayingOptions playing;
};

std::optional<std::string> readAll(std::istream& in) {
  std::string text;
  std::array<char, 65536> block;
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    text.append(block.data(), static_cast<std::size_t>(in.gcount()));
  }
  return in.bad() ? std::nullopt : std::optional(text);
}

std::optional<std::string> readFile(const std::string& file) {
  if (file == "-") return readAll(std::cin);
  std::ifstream in(file, std::ios::binary);
  return in ? readAll(in) : std::nullopt;
}

int complain(const std::string& message) {
  std::cerr << "norra-scenario: " << message << '\n';
  return usageError;
}

int play(const Arguments& arguments, const std::string& text) {
  const auto read = scenario::readScenario(text);
  if (const auto* fault = std::get_if<scenario::ScenarioFault>(&read)) {
    const auto place = fault->pointer.empty() ? "the whole file" : fault->pointer;
    return complain(arguments.file + ": " + place + ": " + fault->message);
  }
  return scenario::playScenario(std::get<scenario::ScenarioFile>(read), arguments.playing, std::cout);
}

int run(const Arguments& arguments) {
  const auto text = readFile(arguments.file);
  if (!text) return complain(arguments.file + ": cannot be read");
  if (!arguments.decodes) return play(arguments, *text);
  std::istringstream reports(*text);
  return scenario::decodeReports(reports, std::cout) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  Arguments arguments;
  CLI::App app("Plays a scenario file through the collector service on a simulated desktop and prints what it does.",
               "norra-scenario");
  app.set_version_flag("--version", "norra-scenario " NORRA_VERSION);
  app.add_option("FILE", arguments.file, "The file; - for standard input")->required()->option_text(" ");
  auto* decode =
      app.add_flag("--decode", arguments.decodes, "Read one report a line and write it again")->option_text(" ");
  app.add_flag("--calls", arguments.playing.printsCalls, "Count the accessibility calls of each step")
      ->excludes(decode)
      ->option_text(" ");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  return run(arguments);
}
