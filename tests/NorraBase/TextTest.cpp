#include <gtest/gtest.h>

#include <vector>

#include "NorraBase/Text.h"

namespace norra {
namespace {

struct Row {
  std::string text;
  std::size_t characters;
};

TEST(Text, CountsWhatAPersonSees) {
  const std::vector<Row> rows{
      {"", 0},
      {"abc", 3},
      {"a\r\nb", 3},
      {"e\u0301e", 2},                                    // a combining accent
      {"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", 2},    // two flags of two letters each
      {"\U0001F468\u200D\U0001F469\u200D\U0001F467", 1},  // a family
      {"\u1112\u1161\u11AB", 1},                          // a decomposed syllable
      {"a\u0301\u0302b", 2},
      {"x\xff\xfey", 4},  // bytes that are no text
  };
  for (const auto& row : rows) EXPECT_EQ(characterCount(row.text), row.characters) << row.text;
}

TEST(Text, CutsBetweenCharacters) {
  EXPECT_EQ(firstCharacters("ae\u0301b", 2), "ae\u0301");
  EXPECT_EQ(firstCharacters("ab", 5), "ab");
  EXPECT_TRUE(hasMoreCharactersThan("abc", 2));
  EXPECT_FALSE(hasMoreCharactersThan("ae\u0301", 2));
}

TEST(Text, ComparesByCanonicalEquivalence) {
  EXPECT_TRUE(areCanonicallyEquivalent("\u00e9", "e\u0301"));
  EXPECT_TRUE(areCanonicallyEquivalent("\u212b", "A\u030a"));
  EXPECT_FALSE(areCanonicallyEquivalent("e", "\u00e9"));
  EXPECT_FALSE(areCanonicallyEquivalent("\ufb01", "fi"));  // only compatible
  EXPECT_TRUE(areCanonicallyEquivalent("\uac01", "\u1100\u1161\u11a8"));
  EXPECT_FALSE(areCanonicallyEquivalent("\xff", "\xfe"));
  EXPECT_TRUE(areCanonicallyEquivalent("\xff", "\xff"));
}

TEST(Text, ComparesMarksWithTheirLettersWhateverSurroundsThem) {
  EXPECT_TRUE(areCanonicallyEquivalent("ab\u00e9cd", "abe\u0301cd"));
  EXPECT_TRUE(areCanonicallyEquivalent("\u00e9\u0323b", "\u1eb9\u0301b"));
  EXPECT_TRUE(areCanonicallyEquivalent("a\u0301\u0323", "a\u0323\u0301"));
  EXPECT_TRUE(areCanonicallyEquivalent("\u6f22a\u0301\u0323\u6f22", "\u6f22a\u0323\u0301\u6f22"));
  EXPECT_FALSE(areCanonicallyEquivalent("a\u0301\u0301", "a\u0301"));
  EXPECT_FALSE(areCanonicallyEquivalent("e", "e\u0301"));
  EXPECT_FALSE(areCanonicallyEquivalent("", "\u0301"));
}

TEST(Text, KnowsUTF8) {
  EXPECT_TRUE(isValidUTF8("aé\U0001F468"));
  for (const auto* text : {"\xff", "a\xc3", "\xed\xa0\x80", "\xc0\x80"}) EXPECT_FALSE(isValidUTF8(text));
}

}  // namespace
}  // namespace norra
