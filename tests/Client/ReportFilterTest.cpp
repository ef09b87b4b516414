#include <gmock/gmock.h>

#include "Client/ReportFilter.h"
#include "NorraDataCollector/model/ActionEncoding.h"

namespace norra {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A session: the kinds in it stand for its reports.
const std::vector<Action> session{
    CollectorData{},
    ClickData{.elementName = "before any switch", .controlType = "", .automationID = "", .button = MouseButton::left},
    ChangeApplicationData{
        .processID = 1, .applicationName = "org.Notes", .fileDescription = "My Notes", .windowTitle = ""},
    OpenMenuData{},
    ChangeApplicationData{.processID = 2, .applicationName = "mail", .fileDescription = "Mail", .windowTitle = ""},
    ExternalData{},
    CollectorData{.operation = CollectorOperation::stop},
};

std::vector<std::string> printed(const WantedReports& wanted) {
  ReportFilter filter(wanted);
  std::vector<std::string> kinds;
  for (const auto& action : session) {
    if (filter.wants({encode(action), {}, false})) kinds.emplace_back(rawValue(kind(action)));
  }
  return kinds;
}

TEST(ReportFilter, WantsEverythingUnlessTold) {
  EXPECT_EQ(printed({}).size(), session.size());
  EXPECT_TRUE(ReportFilter({}).wants({"not a report", {}, false}));
}

TEST(ReportFilter, WantsWhatIsDoneInAnApplication) {
  const auto ofNotes = ElementsAre("Collector", "ChangeApplication", "OpenMenu", "Collector");
  EXPECT_THAT(printed({.applications = {"org.notes"}, .kinds = {}}), ofNotes);
  EXPECT_THAT(printed({.applications = {"MY NOTES"}, .kinds = {}}), ofNotes);
  EXPECT_THAT(printed({.applications = {"Notes"}, .kinds = {}}), ElementsAre("Collector", "Collector"));
  EXPECT_THAT(printed({.applications = {"my notes", "mail"}, .kinds = {}}),
              ElementsAre("Collector", "ChangeApplication", "OpenMenu", "ChangeApplication", "External", "Collector"));
}

TEST(ReportFilter, KnowsNoApplicationAfterAPause) {
  ReportFilter filter({.applications = {"mail"}, .kinds = {}});
  const auto wants = [&](const Action& action) { return filter.wants({encode(action), {}, false}); };
  EXPECT_TRUE(wants(
      ChangeApplicationData{.processID = 2, .applicationName = "mail", .fileDescription = "Mail", .windowTitle = ""}));
  EXPECT_TRUE(wants(OpenMenuData{}));
  EXPECT_TRUE(wants(CollectorData{.operation = CollectorOperation::stop}));
  EXPECT_TRUE(wants(CollectorData{.operation = CollectorOperation::start}));
  EXPECT_FALSE(wants(OpenMenuData{}));
}

TEST(ReportFilter, WantsKinds) {
  EXPECT_THAT(printed({.applications = {}, .kinds = {CodingKeys::click, CodingKeys::external}}),
              ElementsAre("Click", "External"));
  EXPECT_THAT(printed({.applications = {"mail"}, .kinds = {CodingKeys::openMenu, CodingKeys::external}}),
              ElementsAre("External"))
      << "a switch is noticed, wanted or not";
}

TEST(ReportFilter, DoesNotWantWhatItCannotRead) {
  ReportFilter filter({.applications = {}, .kinds = {CodingKeys::click}});
  EXPECT_FALSE(filter.wants({"", {}, false}));
}

}  // namespace
}  // namespace norra
