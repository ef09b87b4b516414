// Each way on which a click ends without a report says so at debug level, with its reason.
#include <gmock/gmock.h>

#include "NorraDataCollector/DataCollector.h"
#include "Platform/Simulated/Desktop.h"
#include "tests/RecordingSink.h"

namespace norra {
namespace {

using namespace std::chrono_literals;
using simulated::Attributes;
using simulated::ElementReference;
using testing::ElementsAre;

class ClickReasons : public testing::Test {
 protected:
  ClickReasons() {
    add("window", "AXWindow", {});
    add("label", "AXStaticText", {{"AXParent", ElementReference{"window"}}});
    add("agree", "AXCheckBox", {{"AXTitle", "Agree"}});
    add("cell", "AXCell", {{"AXParent", ElementReference{"row"}}});
    add("row", "AXRow", {{"AXSelected", NSNumber{true}}});
    add("panel", "AXGroup", {});
    desktop.setActions("panel", {"AXPress"});
    collector->start();
    desktop.runReadyJobs();
  }

  void add(const std::string& identifier, const std::string& role, Attributes attributes) {
    attributes["AXRole"] = role;
    desktop.add(identifier, {.process = 7, .attributes = std::move(attributes)});
  }

  /// What the log says of a click on the element, from the first look to the second.
  std::vector<std::string> reasonsFor(const std::string& element) {
    desktop.setScreen({{{0, 0, 10, 10}, {element}}});
    const auto before = log.texts(LogLevel::debug).size();
    desktop.click({5, 5});
    desktop.advance(1s);
    auto reasons = log.texts(LogLevel::debug);
    reasons.erase(reasons.begin(), reasons.begin() + static_cast<std::ptrdiff_t>(before));
    std::erase_if(reasons, [](const auto& text) { return !text.starts_with("A click "); });
    return reasons;
  }

  RecordingSink log;
  simulated::Desktop desktop;
  const std::shared_ptr<DataCollector> collector = DataCollector::create(desktop.platform(), [](const Action&) {});
};

TEST_F(ClickReasons, SayWhatWasClickedAndWhyItIsNotReported) {
  EXPECT_THAT(reasonsFor("label"),
              ElementsAre("A click on AXStaticText in AXWindow gives no report yet: none of these can be clicked",
                          "A click on AXStaticText in AXWindow gives no report: none of these can be clicked"));
  EXPECT_THAT(reasonsFor("agree"),
              ElementsAre("A click on AXCheckBox gives no report yet: a check box has its new state a moment later"));
  EXPECT_THAT(reasonsFor("cell"),
              ElementsAre("A click on AXCell in AXRow gives no report yet: the row and the cell have no name",
                          "A click on AXCell in AXRow gives no report: the row and the cell have no name"));
  EXPECT_THAT(reasonsFor("panel"), ElementsAre("A click on AXGroup gives no report yet: none of these is a control",
                                               "A click on AXGroup gives no report: none of these is a control"));
}

TEST_F(ClickReasons, SayThatCollectionEndedMeanwhile) {
  desktop.setScreen({{{0, 0, 10, 10}, {"agree"}}});
  desktop.click({5, 5});
  collector->stop();
  desktop.advance(1s);
  EXPECT_THAT(log.texts(LogLevel::debug),
              testing::Contains("A click or another event gives no report: collection ended "
                                "before it was handled"));
}

}  // namespace
}  // namespace norra
