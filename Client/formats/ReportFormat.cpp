#include "Client/formats/ReportFormat.h"

#include <algorithm>
#include <array>

#include "Client/formats/CsvLine.h"
#include "Client/formats/Report.h"
#include "Client/formats/TextLine.h"

namespace norra {
namespace {

struct Format {
  std::string_view name;
  ReportFormatter (*create)(const FormatOptions&);
  std::string (*head)() = [] { return std::string(); };
};

constexpr std::array formats{
    Format{"jsonl", [](const FormatOptions&) -> ReportFormatter { return jsonLine; }},
    Format{"text", newTextFormatter},
    Format{"csv", [](const FormatOptions&) -> ReportFormatter { return csvLine; }, csvHead},
};

const Format* find(std::string_view name) {
  const auto* format = std::ranges::find(formats, name, &Format::name);
  return format == formats.end() ? nullptr : format;
}

}  // namespace

std::vector<std::string> formatNames() {
  std::vector<std::string> names;
  for (const auto& format : formats) names.emplace_back(format.name);
  return names;
}

ReportFormatter newFormatter(std::string_view name, const FormatOptions& options) {
  const auto* format = find(name);
  return format == nullptr ? nullptr : format->create(options);
}

std::string headOf(std::string_view name) {
  const auto* format = find(name);
  return format == nullptr ? "" : format->head();
}

}  // namespace norra
