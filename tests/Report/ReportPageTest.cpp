#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "Report/PageTemplate.h"
#include "Report/ReportPage.h"

namespace norra::report {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::vector<std::string> hostileTexts{"</script><script>alert(1)</script>",
                                            "<!-- <script>",
                                            "]]>",
                                            "a\u2028b\u2029c",
                                            "\xE2\x80\xA7 \xE2\x80\xAA",
                                            std::string("nul\0nul", 7),
                                            "\"\\/\b\f\n\r\t",
                                            "{{title}} {{data}}",
                                            "😀 é 検索",
                                            "</SCRIPT",
                                            "&lt;"};

const CollectorData stop{CodingKeys::collector, CollectorOperation::stop};

json dataOf(const std::vector<RecordedReport>& reports) {
  return json::parse(pageData({"Title", "file", 0}, reports, summarize(reports)));
}

std::string pageOf(const PageHeading& heading, const std::vector<RecordedReport>& reports) {
  std::ostringstream page;
  writeReportPage(page, heading, reports);
  return page.str();
}

std::size_t countOf(std::string_view part, std::string_view text) {
  std::size_t count = 0;
  for (auto place = text.find(part); place != text.npos; place = text.find(part, place + 1)) ++count;
  return count;
}

TEST(PageTemplate, HoldsEachMarkerOnceAndTheTitleFirst) {
  EXPECT_EQ(countOf(titleMarker, pageTemplate), 1);
  EXPECT_EQ(countOf(dataMarker, pageTemplate), 1);
  EXPECT_LT(pageTemplate.find(titleMarker), pageTemplate.find(dataMarker));
  EXPECT_THAT(std::string(pageTemplate), Not(HasSubstr("{{s")));
}

TEST(PageData, KeepsEveryTextAndNeverEndsItsElement) {
  for (const auto& text : hostileTexts) {
    const std::vector<RecordedReport> reports{{Instant{}, ExternalData{CodingKeys::external, text}}};
    const auto data = pageData({text, text, 0}, reports, summarize(reports));
    EXPECT_THAT(data, Not(HasSubstr("<"))) << text;
    EXPECT_THAT(data, Not(HasSubstr("\u2028"))) << text;
    EXPECT_THAT(data, Not(HasSubstr("\u2029"))) << text;
    const auto read = json::parse(data);
    EXPECT_EQ(read["title"], text);
    EXPECT_THAT(read["texts"].get<std::vector<std::string>>(), testing::Contains(text));
  }
}

TEST(PageData, LaysOutARowAsThePageReadsIt) {
  const auto data =
      dataOf({{Instant{}, ChangeApplicationData{CodingKeys::changeApplication, -7, "a", "A", ""}},
              {Instant(Duration(5)), ClickData{CodingKeys::click, "Save", "", "", MouseButton::left, std::nullopt}}});
  const auto texts = data["texts"].get<std::vector<std::string>>();
  const auto rows = data["rows"].get<std::vector<int>>();
  const auto text = [&](std::size_t place) { return rows.at(place) < 0 ? "-" : texts.at(rows.at(place)); };
  const std::size_t click = 6 + 4;
  EXPECT_THAT(std::vector(rows.begin(), rows.begin() + 3), ElementsAre(0, 2, 0));
  EXPECT_EQ(text(3) + text(4) + text(5) + text(6), "Switched toA--7");
  EXPECT_THAT(std::vector(rows.begin() + click, rows.begin() + click + 3), ElementsAre(5, 4, 0));
  EXPECT_EQ(text(click + 4) + text(click + 6) + text(click + 9) + text(click + 10), "SaveSaveleft-");
  EXPECT_EQ(rows.size(), click + 6 + data["kinds"][4]["fields"].size());
}

TEST(PageData, MeasuresTimeFromTheFirstReport) {
  const Instant first(std::chrono::seconds(1000));
  const auto data = dataOf({{first, ChangeApplicationData{CodingKeys::changeApplication, 1, "a", "", ""}},
                            {first + Duration(40), stop},
                            {first + Duration(60), CollectorData{}},
                            {first + Duration(90), stop}});
  EXPECT_EQ(data["begin"], 1000000000);
  EXPECT_EQ(data["spans"], json::array({0, 0, 40, 1, 60, 90}));
  EXPECT_EQ(data["pauses"], json::array({40, 60}));
  EXPECT_EQ(data["collected"], 70);
}

TEST(ReportPage, HoldsTheTitleAsText) {
  const auto page = pageOf({"A <b> & </title>", "", 0}, {});
  EXPECT_THAT(page, HasSubstr("<title>A &lt;b&gt; &amp; &lt;/title&gt;</title>"));
}

TEST(ReportPage, TakesATitleThatIsNotUTF8) { EXPECT_THAT(pageOf({"\xFF", "\xFE", 0}, {}), HasSubstr("\uFFFD")); }

TEST(ReportPage, NamesNoOtherResource) {
  const auto page = pageOf({"T", "", 0}, {});
  EXPECT_THAT(page, Not(HasSubstr(" src=")));
  EXPECT_THAT(page, Not(HasSubstr("@import")));
  EXPECT_THAT(page, Not(HasSubstr("url(")));
  EXPECT_EQ(countOf("href=", page), countOf("href=\"#", page) + countOf("href=\"data:", page));
  EXPECT_EQ(countOf("http", page), countOf("http://www.w3.org/2000/svg", page) + countOf("http-equiv", page));
}

}  // namespace
}  // namespace norra::report
