// docs/wire-format.md against the code: its tables name every kind with its members, and every example is what it says.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionFields.h"
#include "ScenarioPlayer/ReportDecoding.h"

namespace norra {
namespace {

using Lines = std::vector<std::string>;

Lines documentLines() {
  std::ifstream in(NORRA_DOCUMENT);
  Lines lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The lines of all blocks that begin with ``` and this.
Lines blocks(const std::string& beginning) {
  Lines inside;
  bool isInside = false;
  for (const auto& line : documentLines()) {
    if (line.starts_with("```")) {
      isInside = !isInside && line == "```" + beginning;
    } else if (isInside) {
      inside.push_back(line);
    }
  }
  return inside;
}

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

Lines cellsOf(const std::string& row) {
  std::istringstream in(row.substr(1));
  Lines cells;
  for (std::string cell; std::getline(in, cell, '|');) cells.push_back(trimmed(cell));
  return cells;
}

/// The cells of the rows of the table whose head begins with this cell.
std::vector<Lines> table(const std::string& head) {
  std::vector<Lines> rows;
  bool isInside = false;
  for (const auto& line : documentLines()) {
    if (!line.starts_with("| ")) isInside = false;
    if (isInside && !line.starts_with("| ---")) rows.push_back(cellsOf(line));
    if (line.starts_with("| " + head + " |")) isInside = true;
  }
  return rows;
}

template <typename Value>
constexpr bool isOptional = false;
template <typename Value>
constexpr bool isOptional<std::optional<Value>> = true;

/// The members of a kind as the document writes them.
template <typename Data>
std::string membersOf() {
  std::string text;
  forEachField<Data>([&]<typename Value>(const Field<Data, Value>& field) {
    text += (text.empty() ? "`" : ", `") + std::string(field.name) + (isOptional<Value> ? "`?" : "`");
  });
  return text;
}

template <std::size_t... index>
std::vector<std::pair<std::string, std::string>> everyKind(std::index_sequence<index...>) {
  return {{"`" + std::string(rawValue(static_cast<CodingKeys>(index))) + "`",
           membersOf<std::variant_alternative_t<index, Action>>()}...};
}

constexpr auto allKinds = std::make_index_sequence<std::variant_size_v<Action>>();

std::string decoded(const Lines& reports) {
  std::stringstream in;
  for (const auto& report : reports) in << report << '\n';
  std::ostringstream out;
  scenario::decodeReports(in, out);
  return out.str();
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const auto& line : lines) text += line + '\n';
  return text;
}

TEST(WireFormatDocument, ListsEveryKindWithItsMembers) {
  std::vector<std::pair<std::string, std::string>> listed;
  for (const auto& row : table("kind")) listed.emplace_back(row.at(0), row.at(1));
  EXPECT_EQ(listed, everyKind(allKinds));
}

TEST(WireFormatDocument, HasAnExampleOfEveryKind) {
  std::set<std::size_t> kinds;
  for (const auto& example : blocks("json")) {
    const auto action = decodeAction(example);
    if (std::holds_alternative<Action>(action)) kinds.insert(std::get<Action>(action).index());
  }
  EXPECT_EQ(kinds.size(), std::variant_size_v<Action>);
}

TEST(WireFormatDocument, ShowsItsExamplesAsTheyAreWritten) {
  const auto examples = blocks("json");
  EXPECT_EQ(decoded(examples), joined(examples));
}

TEST(WireFormatDocument, ShowsOtherTextsThatAreRead) {
  const auto examples = blocks("json accepted");
  EXPECT_GE(examples.size(), 4U);
  for (const auto& example : examples) EXPECT_THAT(decoded({example}), testing::StartsWith(R"({"action":)")) << example;
}

TEST(WireFormatDocument, NamesTheMemberForWhichATextIsRefused) {
  const auto rows = table("member at fault");
  EXPECT_GE(rows.size(), 10U);
  for (const auto& row : rows) {
    const auto report = row.at(1).substr(1, row.at(1).size() - 2);
    const auto result = decodeAction(report);
    const auto* error = std::get_if<DecodingError>(&result);
    ASSERT_NE(error, nullptr) << report;
    EXPECT_EQ(error->member ? "`" + *error->member + "`" : "none", row.at(0)) << report;
  }
}

}  // namespace
}  // namespace norra
