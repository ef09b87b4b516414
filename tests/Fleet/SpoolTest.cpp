#include <gmock/gmock.h>

#include <fstream>

#include "Fleet/Spool.h"
#include "tests/Client/FileSizeLimit.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra::fleet {
namespace {

using testing::ElementsAre;

class SpoolInFolder : public testing::Test {
 protected:
  Spool open(std::size_t maxBytes = 1000000) { return std::get<Spool>(Spool::open(folder_, maxBytes)); }

  static std::vector<std::string> linesOf(const Spool& spool) {
    std::vector<std::string> lines;
    for (auto number = spool.begin(); number < spool.end(); ++number) lines.push_back(spool[number]);
    return lines;
  }

  /// What a process that is killed now leaves.
  std::string file() const {
    std::ifstream in(folder_ + "/waiting.jsonl");
    return {std::istreambuf_iterator<char>(in), {}};
  }

  const linux_desktop::TemporaryFolder temporary_;
  const std::string folder_ = temporary_.path() / "state/norra-fleet";
};

TEST_F(SpoolInFolder, HasALineOnTheDiskAtOnceAndTakesOverWhatIsThere) {
  auto first = open();
  first.append("one");
  first.append("two");
  EXPECT_EQ(file(), "one\ntwo\n");
  EXPECT_TRUE(std::holds_alternative<std::string>(Spool::open(folder_, 1000))) << "two processes with one file";
  { const auto end = std::move(first); }
  std::ofstream(folder_ + "/waiting.jsonl", std::ios::app) << "tor";  // killed while it wrote
  auto second = open();
  EXPECT_THAT(linesOf(second), ElementsAre("one", "two"));
  second.append("three");
  EXPECT_EQ(file(), "one\ntwo\nthree\n");
}

TEST_F(SpoolInFolder, TheOldestLinesGiveWay) {
  auto spool = open(12);
  EXPECT_EQ(spool.append("one"), 0U);
  EXPECT_EQ(spool.append("two"), 0U);
  EXPECT_EQ(spool.append("seven"), 1U);
  EXPECT_THAT(linesOf(spool), ElementsAre("two", "seven"));
  EXPECT_EQ(spool.append("longer than the bound"), 2U);
  EXPECT_THAT(linesOf(spool), ElementsAre("longer than the bound"));
}

TEST_F(SpoolInFolder, TheFileDoesNotGrowWithWhatIsReleased) {
  auto spool = open();
  const std::string line(100000, 'x');
  for (int count = 0; count < 40; ++count) {
    spool.append(line);
    spool.append("kept");
    spool.releaseBefore(spool.end() - 1);
    ASSERT_EQ(spool.save(), 0);
    ASSERT_LT(file().size(), 3000000U);
    ASSERT_TRUE(file().ends_with("kept\n"));
  }
  spool.releaseBefore(spool.end());
  EXPECT_EQ(spool.save(), 0);
  EXPECT_EQ(file(), "");
}

TEST_F(SpoolInFolder, WhatADiskDidNotTakeIsWrittenWhenThereIsRoom) {
  auto spool = open();
  const FileSizeLimit limit(6);
  spool.append("one");
  spool.append("two");
  EXPECT_NE(spool.save(), 0);
  limit.set(1000);
  EXPECT_THAT(linesOf(spool), ElementsAre("one", "two"));
  EXPECT_EQ(spool.save(), 0);
  EXPECT_EQ(file(), "one\ntwo\n");
}

}  // namespace
}  // namespace norra::fleet
