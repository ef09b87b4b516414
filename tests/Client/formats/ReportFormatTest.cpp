#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>

#include "Client/formats/CsvLine.h"
#include "Client/formats/Report.h"
#include "Client/formats/ReportFormat.h"
#include "NorraDataCollector/model/ActionEncoding.h"

namespace norra {
namespace {

using std::chrono::microseconds;
using std::chrono::system_clock;
using testing::HasSubstr;
using testing::Not;

constexpr system_clock::time_point date(microseconds(1'700'000'000'000'042));

struct JsonCase {
  std::string event;
  bool isApplicationEvent;
  std::string line;
};

TEST(JsonLine, HoldsTheReportsMembersThenDateAndFlag) {
  const JsonCase cases[] = {
      {R"({"action":"OpenMenu","elementName":"Ä \"q\" \/ x","automationID":""})", false,
       R"({"action":"OpenMenu","elementName":"Ä \"q\" / x","automationID":"",)"
       R"("date":"2023-11-14T22:13:20.000042Z","isApplicationEvent":false})"},
      {"", true, R"({"date":"2023-11-14T22:13:20.000042Z","isApplicationEvent":true})"},
      {"[1]", false, R"({"date":"2023-11-14T22:13:20.000042Z","isApplicationEvent":false})"},
  };
  for (const auto& [event, isApplicationEvent, line] : cases) {
    EXPECT_EQ(jsonLine({event, date, isApplicationEvent}), line);
  }
}

class TextFormat : public testing::Test {
 protected:
  TextFormat() {
    setenv("TZ", "UTC", 1);
    tzset();
  }

  std::string line(const Action& action) { return format({encode(action), date, false}); }

  ReportFormatter format = newFormatter("text", {});
};

TEST_F(TextFormat, NamesTheApplicationInFrontFromItsSwitchOn) {
  const ChangeApplicationData toEditor{
      .processID = 7, .applicationName = "org.editor", .fileDescription = "Editor", .windowTitle = "Notes"};
  EXPECT_EQ(line(CollectorData{}), "22:13:20.000  Collection started");
  EXPECT_EQ(line(toEditor), R"(22:13:20.000  Switched to "Editor" · Notes)");
  EXPECT_EQ(line(OpenMenuData{.elementName = "File", .automationID = ""}),
            R"(22:13:20.000  Editor            Opened menu "File")");
  EXPECT_EQ(line(CollectorData{.operation = CollectorOperation::stop}), "22:13:20.000  Collection stopped");
  EXPECT_EQ(line(CollectorData{}), "22:13:20.000  Collection started");
  EXPECT_EQ(line(OpenMenuData{.elementName = "File", .automationID = ""}), R"(22:13:20.000  Opened menu "File")");
}

TEST_F(TextFormat, LetsNoControlCharacterReachTheTerminal) {
  const auto text = line(OpenMenuData{.elementName = "a\033[2Jb\nc\x7f \xC2\x9B d\xC3\xA4", .automationID = ""});
  EXPECT_THAT(text, HasSubstr("\"a [2Jb c    d\xC3\xA4\""));
}

TEST_F(TextFormat, SaysThatAReportCannotBeRead) {
  EXPECT_THAT(format({R"({"action":"NoSuchAction"})", date, false}), HasSubstr("unreadable report: "));
}

TEST_F(TextFormat, UsesColorOnlyWhereItMay) {
  EXPECT_THAT(line(CollectorData{}), Not(HasSubstr("\033")));
  EXPECT_THAT(newFormatter("text", {.usesColor = true})({encode(CollectorData{}), date, false}), HasSubstr("\033[2m"));
}

TEST(ReportFormat, EveryNameHasAFormatterAndOtherNamesHaveNone) {
  for (const auto& name : formatNames()) EXPECT_TRUE(newFormatter(name, {})) << name;
  EXPECT_FALSE(newFormatter("xml", {}));
}

}  // namespace
}  // namespace norra
