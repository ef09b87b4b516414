#include <gmock/gmock.h>

#include <sstream>

#include "Report/SessionReading.h"

namespace norra::report {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const std::string date = R"("date":"2025-03-04T10:15:30.123456Z")";
const std::string start = R"({"action":"Collector","operation":"start",)" + date + R"(,"isApplicationEvent":false})";

std::string problemOf(const std::string& line) {
  const auto read = readRecordedReport(line);
  const auto* problem = std::get_if<std::string>(&read);
  return problem == nullptr ? "" : *problem;
}

struct FaultyLine {
  std::string line;
  std::string problem;
};

const std::vector<FaultyLine> faultyLines{
    {"{", "not JSON"},
    {"[]", "not a JSON object"},
    {R"({"action":"Collector","operation":"begin",)" + date + "}", "\"operation\""},
    {R"({"action":"Undefined","isApplicationEvent":false})", "\"date\""},
    {R"({"action":"Undefined","date":1741083330,"isApplicationEvent":false})", "\"date\""},
    {R"({"action":"Undefined","date":"yesterday","isApplicationEvent":false})", "\"date\""},
    {R"({"action":"Undefined",)" + date + "}", "\"isApplicationEvent\""},
    {R"({"action":"Undefined",)" + date + R"(,"isApplicationEvent":0})", "\"isApplicationEvent\""},
    {"{\"action\":\"External\",\"message\":\"\xFF\"," + date + R"(,"isApplicationEvent":false})", "not JSON"},
};

TEST(RecordedReport, IsReadWithItsDate) {
  const auto read = readRecordedReport(start);
  EXPECT_EQ(std::get<RecordedReport>(read),
            (RecordedReport{*instantFrom("2025-03-04T10:15:30.123456Z"), CollectorData{}}));
}

TEST(RecordedReport, WithAFaultNamesIt) {
  for (const auto& [line, problem] : faultyLines) EXPECT_THAT(problemOf(line), HasSubstr(problem)) << line;
}

TEST(RecordedReport, WithAFaultQuotesNoneOfItsValues) {
  const auto line = R"({"action":"ChangeText","elementName":"Secret name","automationID":7,"newValue":"Secret value"})";
  EXPECT_THAT(problemOf(line), HasSubstr("automationID"));
  EXPECT_THAT(problemOf(line), Not(HasSubstr("Secret")));
}

TEST(RecordedReport, OfAPasswordForgetsAValueThatSomebodyWroteIntoTheFile) {
  const auto read = readRecordedReport(R"({"action":"ChangePassword","elementName":"PIN","automationID":"",)"
                                       R"("newValue":"1234",)" +
                                       date + R"(,"isApplicationEvent":false})");
  EXPECT_EQ(std::get<ChangePasswordData>(std::get<RecordedReport>(read).action).newValue, "");
}

class SessionReading : public testing::Test {
 protected:
  void read(const std::string& text) {
    std::istringstream lines(text);
    reports_ = readSession(lines, [this](const LineFault& fault) {
      faultyLines_.push_back(fault.line);
      return afterFault_;
    });
  }

  AfterFault afterFault_ = AfterFault::goOn;
  std::vector<RecordedReport> reports_;
  std::vector<std::size_t> faultyLines_;
};

TEST_F(SessionReading, CountsFaultyLinesFromOneAndGoesOn) {
  read("oops\n" + start + "\n\n \t\r\n{}\n" + start + "\r\n" + start.substr(0, 20));
  EXPECT_THAT(reports_, SizeIs(2));
  EXPECT_THAT(faultyLines_, ElementsAre(1, 5, 7));
}

TEST_F(SessionReading, EndsAtTheFirstFaultWhenTold) {
  afterFault_ = AfterFault::end;
  read(start + "\noops\noops\n" + start);
  EXPECT_THAT(reports_, SizeIs(1));
  EXPECT_THAT(faultyLines_, ElementsAre(2));
}

TEST_F(SessionReading, TakesTheLastLineWithoutItsEndAndNothingFromNothing) {
  read(start);
  EXPECT_THAT(reports_, SizeIs(1));
  read("");
  EXPECT_THAT(reports_, IsEmpty());
  EXPECT_THAT(faultyLines_, IsEmpty());
}

}  // namespace
}  // namespace norra::report
