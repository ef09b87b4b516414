#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>

#include "Client/ReportOutput.h"
#include "NorraDataCollector/model/ActionEncoding.h"
#include "tests/Client/FileSizeLimit.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const Report report{encode(OpenMenuData{.elementName = "a \"b\", c", .automationID = ""}), {}, false};

class ReportOutputTest : public testing::Test {
 protected:
  /// Prints reports until one is not to be followed by another.
  Reception print(int descriptor, const OutputOptions& options, int most) {
    ReportOutput output(descriptor, options, [this](const std::string& text) { messages.push_back(text); });
    for (int printed = 1; printed < most; ++printed) {
      if (const auto reception = output.print(report); reception != Reception::goOn) return reception;
    }
    return output.print(report);
  }

  std::vector<std::string> printIntoFile(const OutputOptions& options, int most) {
    const auto path = (folder.path() / "reports").string();
    const int file = LineWriter::open(path).descriptor;
    print(file, options, most);
    close(file);
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  linux_desktop::TemporaryFolder folder;
  std::vector<std::string> messages;
};

TEST_F(ReportOutputTest, HasOneHeadInAFileThatIsWrittenTwice) {
  const OutputOptions options{.format = "csv", .formatting = {}, .name = {}, .wanted = {}, .count = {}};
  printIntoFile(options, 1);
  const auto lines = printIntoFile(options, 1);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_THAT(lines[0], StartsWith("date,action,operation,processID,"));
  EXPECT_EQ(lines[1], lines[2]);
  EXPECT_THAT(lines[1], StartsWith(R"(1970-01-01T00:00:00.000000Z,OpenMenu,,,,,,"a ""b"", c",)"));
  EXPECT_EQ(std::ranges::count(lines[0], ','), std::ranges::count(lines[1], ',') - 1) << "one is inside a name";
}

TEST_F(ReportOutputTest, WritesItsHeadOnceThereIsRoom) {
  const auto path = folder.path() / "reports";
  const int file = LineWriter::open(path.string()).descriptor;
  const FileSizeLimit limit(0);
  const auto note = [this](const std::string& text) { messages.push_back(text); };
  ReportOutput output(file, {.format = "csv", .formatting = {}, .name = {}, .wanted = {}, .count = {}}, note);
  output.print(report);
  limit.set(10'000);
  output.print(report);
  output.print(report);
  close(file);
  std::ifstream in(path);
  std::string head;
  std::getline(in, head);
  EXPECT_THAT(head, StartsWith("date,action,"));
  EXPECT_EQ(std::count(std::istreambuf_iterator<char>(in), {}, '\n'), 2);
  EXPECT_EQ(messages.size(), 2U) << "lost, and found again";
}

TEST_F(ReportOutputTest, SaysOnceThatADiskIsFullAndGoesOn) {
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  const OutputOptions options{.format = "jsonl", .formatting = {}, .name = "FILE", .wanted = {}, .count = {}};
  EXPECT_EQ(print(full, options, 3), Reception::goOn);
  EXPECT_THAT(messages, ElementsAre(HasSubstr("FILE cannot be written (No space left on device)")));
  close(full);
}

}  // namespace
}  // namespace norra
