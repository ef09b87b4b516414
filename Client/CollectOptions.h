// The command line of norra-collect. Help, completion and manual page are made from what is declared for it.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <variant>

#include "Client/ReportFilter.h"

namespace norra {

struct CollectOptions {
  /// Empty: text for a terminal, jsonl for anything else.
  std::string format;
  /// A file that is appended to; empty: standard output.
  std::string outputFile;
  std::optional<std::chrono::nanoseconds> duration;
  std::optional<std::uint64_t> count;
  WantedReports wanted;
  bool checks = false;
  bool showsStatistics = false;
};

/// The options, or the exit status when there is nothing more to do: help was printed, or what is wrong.
std::variant<CollectOptions, int> parseCollectOptions(int argc, char** argv);

}  // namespace norra
