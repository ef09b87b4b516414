#include "Client/formats/CsvLine.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "Client/formats/Report.h"
#include "NorraBase/OneOf.h"
#include "NorraDataCollector/model/ActionFields.h"

namespace norra {
namespace {

template <typename Data>
void addColumns(std::vector<std::string>& columns) {
  forEachField<Data>([&](const auto& field) {
    if (!isOneOf(columns, field.name)) columns.emplace_back(field.name);
  });
}

template <std::size_t... index>
std::vector<std::string> columnsOfAllKinds(std::index_sequence<index...>) {
  std::vector<std::string> columns{"date", "action"};
  (addColumns<std::variant_alternative_t<index, Action>>(columns), ...);
  return columns;
}

/// The date, the kind, and every member that some kind has.
const std::vector<std::string>& columns() {
  static const auto all = columnsOfAllKinds(std::make_index_sequence<std::variant_size_v<Action>>());
  return all;
}

std::string cell(const std::string& text) {
  if (text.find_first_of("\",\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) quoted.append(character == '"' ? 2 : 1, character);
  return quoted + "\"";
}

std::string textOf(const nlohmann::ordered_json& report, const std::string& column) {
  const auto found = report.find(column);
  if (found == report.end()) return {};
  return found->is_string() ? found->get<std::string>() : found->dump();
}

}  // namespace

std::string csvHead() {
  std::string head;
  for (const auto& column : columns()) head += (head.empty() ? "" : ",") + column;
  return head;
}

std::string csvLine(const Report& report) {
  const auto members = membersOf(report);
  std::string line;
  for (const auto& column : columns()) line += cell(textOf(members, column)) + ",";
  line.pop_back();
  return line;
}

}  // namespace norra
