#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "Client/LineWriter.h"
#include "tests/Client/FileSizeLimit.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra {
namespace {

class LineWriterTest : public testing::Test {
 protected:
  ~LineWriterTest() override {
    if (descriptor_ >= 0) close(descriptor_);
  }

  LineWriter open() {
    descriptor_ = LineWriter::open(path_).descriptor;
    return LineWriter(descriptor_);
  }
  void put(const std::string& content) const { std::ofstream(path_) << content; }
  std::string content() const {
    std::ostringstream all;
    all << std::ifstream(path_).rdbuf();
    return all.str();
  }

  linux_desktop::TemporaryFolder folder_;
  const std::string path_ = (folder_.path() / "lines").string();
  int descriptor_ = -1;
};

TEST_F(LineWriterTest, AppendsWholeLinesAndEndsAnUnfinishedOne) {
  put("old");
  auto writer = open();
  EXPECT_FALSE(writer.isAtBeginning());
  EXPECT_EQ(writer.write("new"), 0);
  EXPECT_EQ(content(), "old\nnew\n");
}

TEST_F(LineWriterTest, SaysWhyAFileCannotBeOpened) {
  const auto [descriptor, problem] = LineWriter::open(folder_.path().string());
  EXPECT_LT(descriptor, 0);
  EXPECT_THAT(problem, testing::HasSubstr("Is a directory"));
}

TEST_F(LineWriterTest, TearsNoLineWhereTheRoomEnds) {
  auto writer = open();
  const FileSizeLimit limit(6);
  EXPECT_EQ(writer.write("one"), 0);
  EXPECT_EQ(writer.write("two"), EFBIG) << "two bytes fit";
  EXPECT_EQ(writer.write("lost"), EFBIG);
  EXPECT_EQ(content(), "one\ntw");
  limit.set(100);
  EXPECT_EQ(writer.write("three"), 0);
  EXPECT_EQ(content(), "one\ntwo\nthree\n");
}

}  // namespace
}  // namespace norra
