#include "Client/CollectOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>

#include "Client/formats/ReportFormat.h"

namespace norra {
namespace {

constexpr const char* description =
    "Collects what is done in the applications of this desktop, and prints each report as one line until Ctrl-C. "
    "The key p, or SIGUSR1 and SIGUSR2, pauses and resumes.";
constexpr const char* footer =
    "Exit status: 0 after the service's last report, 1 when the service cannot be reached, --check finds something "
    "missing or a Wayland session, or --stats finds no service, 2 for a wrong use, 3 when the collection ended before "
    "it was stopped or "
    "reports could not be "
    "written.";
constexpr int usageError = 2;

std::string joined(const std::vector<std::string>& texts, const std::string& separator) {
  std::string all;
  for (const auto& text : texts) all += (all.empty() ? "" : separator) + text;
  return all;
}

template <typename Number>
bool isNumberBetween(Number min, Number max, std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
  return error == std::errc() && end == text.end() && number >= min && number <= max;
}

/// Refuses, in a person's words, what is not such a number; CLI11's own refusal prints the limits of its type.
template <typename Number>
CLI::Validator numberBetween(Number min, Number max, const std::string& what) {
  const auto refusal = [=](const std::string& given) {
    return isNumberBetween(min, max, given) ? std::string() : given + " is not " + what;
  };
  return {refusal, ""};
}

std::vector<std::string> kindNames() {
  std::vector<std::string> names;
  for (std::size_t kind = 0; kind < std::variant_size_v<Action>; ++kind) {
    names.emplace_back(rawValue(static_cast<CodingKeys>(kind)));
  }
  return names;
}

/// What CLI11 fills in.
struct Given {
  CollectOptions options;
  std::optional<double> seconds;
  std::vector<std::string> kinds;
};

void declare(CLI::App& app, Given& given) {
  auto& options = given.options;
  app.footer(footer);
  app.set_version_flag("--version", "norra-collect " NORRA_VERSION);
  app.add_option("--format", options.format, "How a report is printed: text for a terminal, else jsonl, unless given")
      ->check(CLI::IsMember(formatNames()))
      ->option_text(joined(formatNames(), "|"));
  app.add_option("-o,--output", options.outputFile, "Append to this file instead of printing")->option_text("FILE");
  app.add_option("--duration", given.seconds, "Stop after this many seconds")
      ->check(numberBetween(0.0, 1e9, "a number of seconds"))
      ->option_text("SECONDS");
  app.add_option("--count", options.count, "Stop after this many reports")
      ->check(numberBetween<std::uint64_t>(1, UINT64_MAX, "a whole number above 0"))
      ->option_text("NUMBER");
  app.add_option(
         "--application", options.wanted.applications,
         "Print reports of this application only, from the first switch to it on, by its name or identifier; may be "
         "repeated")
      ->option_text("NAME");
  app.add_option("--kind", given.kinds,
                 "Print reports of this kind only; may be repeated; one of " + joined(kindNames(), ", "))
      ->transform(CLI::IsMember(kindNames(), CLI::ignore_case))
      ->option_text("KIND");
  app.add_flag("--check", options.checks, "Say whether this desktop is ready, and what to do where it is not")
      ->option_text(" ");
  app.add_flag("--stats", options.showsStatistics,
               "Print what the running service says of its own work; a service that does not run is not started")
      ->excludes("--check")
      ->option_text(" ");
}

CollectOptions optionsFrom(const Given& given) {
  auto options = given.options;
  if (given.seconds) {
    options.duration =
        std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(*given.seconds));
  }
  for (const auto& kind : given.kinds) options.wanted.kinds.push_back(*codingKeysFrom(kind));
  return options;
}

}  // namespace

std::variant<CollectOptions, int> parseCollectOptions(int argc, char** argv) {
  Given given;
  CLI::App app(description, "norra-collect");
  declare(app, given);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : usageError;
  }
  return optionsFrom(given);
}

}  // namespace norra
