#include <gmock/gmock.h>

#include <sstream>

#include "Report/SessionSummary.h"

namespace norra::report {
namespace {

using testing::ElementsAre;
using testing::Optional;

Action switchTo(const std::string& identifier, const std::string& name) {
  return ChangeApplicationData{CodingKeys::changeApplication, 1, identifier, name, ""};
}

Action actionNamed(const std::string& word) {
  if (const auto operation = collectorOperationFrom(word)) return CollectorData{CodingKeys::collector, *operation};
  if (word == "click") return ClickData{};
  return switchTo("org.example." + word, word);
}

Instant at(int seconds) { return Instant(std::chrono::seconds(seconds)); }
auto inSeconds(Instant instant) {
  return std::chrono::duration_cast<std::chrono::seconds>(instant.time_since_epoch()).count();
}

/// "0 start 2 Notes 5 click": seconds and what was reported then; a word that is no action switches to that
/// application.
std::vector<RecordedReport> sessionOf(const std::string& text) {
  std::vector<RecordedReport> reports;
  std::istringstream words(text);
  int seconds = 0;
  for (std::string word; words >> seconds >> word;) reports.push_back({at(seconds), actionNamed(word)});
  return reports;
}

/// "?:0-2 Notes:2-5"
std::string spansOf(const SessionSummary& summary) {
  std::ostringstream text;
  for (const auto& [application, begin, end] : summary.spans) {
    const auto& name = summary.applications[application].name;
    text << (name.empty() ? "?" : name) << ':' << inSeconds(begin) << '-' << inSeconds(end) << ' ';
  }
  return text.str();
}

std::string pausesOf(const SessionSummary& summary) {
  std::ostringstream text;
  for (const auto& [begin, end] : summary.pauses) text << inSeconds(begin) << '-' << inSeconds(end) << ' ';
  return text.str();
}

struct SpanCase {
  const char* name;
  const char* session;
  const char* spans;
  const char* pauses;
};

constexpr std::array spanCases{
    SpanCase{"nothing", "", "", ""},
    SpanCase{"a start alone", "3 start", "", ""},
    SpanCase{"unknown until the first switch", "0 start 2 A 5 stop", "?:0-2 A:2-5 ", ""},
    SpanCase{"there and back", "0 start 0 A 4 B 6 A 9 stop", "A:0-4 B:4-6 A:6-9 ", ""},
    SpanCase{"a stop and a start make a pause, after which the application is unknown",
             "0 start 0 A 4 stop 10 start 12 B 15 stop", "A:0-4 ?:10-12 B:12-15 ", "4-10 "},
    SpanCase{"a pause and its end", "0 start 0 A 4 pause 10 resume 12 stop", "A:0-4 ?:10-12 ", "4-10 "},
    SpanCase{"no stop: to the last report", "0 start 0 A 7 click", "A:0-7 ", ""},
    SpanCase{"a start without a stop before it: a pause since the last report", "0 start 0 A 3 click 9 start 11 stop",
             "A:0-3 ?:9-11 ", "3-9 "},
    SpanCase{"no start: from the first report", "5 click 7 A 9 click", "?:5-7 A:7-9 ", ""},
    SpanCase{"no start: a switch first", "5 A 9 click", "A:5-9 ", ""},
    SpanCase{"a report after the stop shows that collection runs", "0 start 0 A 2 stop 5 click 6 B 8 stop",
             "A:0-2 ?:5-6 B:6-8 ", "2-5 "},
    SpanCase{"two stops", "0 start 0 A 2 stop 5 stop 6 start", "A:0-2 ", "2-6 "},
    SpanCase{"a stop first", "0 stop 4 start 5 A 6 stop", "?:4-5 A:5-6 ", ""},
    SpanCase{"the clock is set back", "100 start 100 A 130 click 40 click 50 B 60 stop", "A:100-130 A:40-50 B:50-60 ",
             ""},
    SpanCase{"the clock is set back before a start", "100 start 100 A 130 click 40 start 50 stop", "A:100-130 ?:40-50 ",
             ""},
    SpanCase{"the clock is set back during a pause", "100 start 100 A 130 stop 40 start 50 stop", "A:100-130 ?:40-50 ",
             ""},
};

TEST(SessionSummary, TellsWhichApplicationWasInFrontWhen) {
  for (const auto& [name, session, spans, pauses] : spanCases) {
    const auto summary = summarize(sessionOf(session));
    EXPECT_EQ(spansOf(summary), spans) << name;
    EXPECT_EQ(pausesOf(summary), pauses) << name;
  }
}

TEST(SessionSummary, SharesTheCollectedTimeAmongTheApplications) {
  for (const auto& row : spanCases) {
    const auto summary = summarize(sessionOf(row.session));
    Duration inFront{}, inSpans{};
    for (const auto& application : summary.applications) inFront += application.timeInFront;
    for (const auto& span : summary.spans) inSpans += span.end - span.begin;
    EXPECT_EQ(inFront, summary.collected) << row.name;
    EXPECT_EQ(inSpans, summary.collected) << row.name;
  }
}

TEST(SessionSummary, CountsByApplicationAndKind) {
  using std::chrono::seconds;
  const auto summary = summarize(sessionOf("0 start 1 click 2 A 3 click 4 B 5 click 6 click 7 A 9 stop"));
  EXPECT_THAT(summary.applications,
              ElementsAre(Application{"", "", seconds(2), 0, 1}, Application{"org.example.A", "A", seconds(4), 2, 3},
                          Application{"org.example.B", "B", seconds(3), 1, 3}));
  EXPECT_THAT(summary.applicationOfReport, ElementsAre(std::nullopt, Optional(0), Optional(1), Optional(1), Optional(2),
                                                       Optional(2), Optional(2), Optional(1), std::nullopt));
  const auto countOf = [&](CodingKeys kind) { return summary.countOfKind[static_cast<std::size_t>(kind)]; };
  EXPECT_EQ(countOf(CodingKeys::collector), 2);
  EXPECT_EQ(countOf(CodingKeys::click), 4);
  EXPECT_EQ(countOf(CodingKeys::changeApplication), 3);
}

TEST(SessionSummary, KeepsApplicationsOfOneNameApart) {
  const std::vector<RecordedReport> reports{
      {at(0), switchTo("a", "Notes")}, {at(1), switchTo("b", "Notes")}, {at(2), switchTo("a", "Notes")}};
  EXPECT_EQ(summarize(reports).applications.size(), 2);
}

}  // namespace
}  // namespace norra::report
