#include <gtest/gtest.h>

#include "NorraDataCollector/interpretation/NameLists.h"
#include "NorraDataCollector/text/Text.h"

namespace norra {
namespace {

using Names = std::vector<std::optional<std::string>>;

std::string joined(const Names& names) {
  return joinedLazilyCollectedNames([&](auto index) { return names[index]; }, names.size());
}

std::string letters(std::size_t count) { return std::string(count, 'x'); }

struct Row {
  std::string title;
  Names names;
  std::string list;
};

TEST(NameLists, KeepWithinTheirBudget) {
  const std::vector<Row> rows{
      {"none", {}, "[]"},
      {"one without a name", {std::nullopt}, "[]"},
      {"three", {"a", "b", "c"}, R"(["a", "b", "c"])"},
      {"an empty name is a name", {"", "b"}, R"(["", "b"])"},
      {"the first without a name", {std::nullopt, "b", "c"}, R"(["b", "c"])"},
      {"all without a name", {std::nullopt, std::nullopt}, "[]"},
      {"the only name just fits", {letters(96)}, "[\"" + letters(96) + "\"]"},
      {"the only name is cut", {letters(97)}, "[\"" + letters(93) + "...\"]"},
      {"the first name is cut", {letters(200), "bb"}, "[\"" + letters(88) + "...\", ...]"},
      {"the last name just fits", {letters(82), letters(10)}, "[\"" + letters(82) + "\", \"" + letters(10) + "\"]"},
      {"the last name does not fit", {letters(83), letters(10)}, "[\"" + letters(83) + "\", ...]"},
      {"room for the continuation is kept",
       {letters(77), letters(10), "cc"},
       "[\"" + letters(77) + "\", \"" + letters(10) + "\", ...]"},
      {"no room for the continuation", {letters(78), letters(10), "c"}, "[\"" + letters(78) + "\", ...]"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(joined(row.names), row.list) << row.title;
    EXPECT_LE(characterCount(row.list), 100U) << row.title;
  }
}

TEST(NameLists, AskForNoNameBeyondTheirBudget) {
  std::size_t asked = 0;
  joinedLazilyCollectedNames(
      [&](auto) {
        ++asked;
        return letters(10);
      },
      1'000'000);
  EXPECT_EQ(asked, 7U);
}

TEST(NameLists, LookForNamesThatThereAreNotOnlySoLong) {
  std::size_t asked = 0;
  const auto list = joinedLazilyCollectedNames(
      [&](auto) {
        ++asked;
        return std::nullopt;
      },
      1'000'000);
  EXPECT_EQ(list, "[]");
  EXPECT_LT(asked, 2'000U);
}

}  // namespace
}  // namespace norra
