// norra-collect and norra-collector-service, as programs, over a session bus of their own and without a desktop.
#include <gmock/gmock.h>
#include <systemd/sd-bus.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "tests/Client/RunningProgram.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra {
namespace {

using linux_desktop::PrivateBus;
using testing::HasSubstr;
using testing::MatchesRegex;
using Json = nlohmann::json;

/// What is left of a report without its date.
std::string undated(const std::optional<std::string>& line) {
  auto report = Json::parse(line.value_or("null"), nullptr, false);
  report.erase("date");
  return report.dump();
}

const std::string start = R"({"action":"Collector","isApplicationEvent":false,"operation":"start"})";
const std::string stop = R"({"action":"Collector","isApplicationEvent":false,"operation":"stop"})";

bool isServiceRunning() {
  sd_bus* bus = nullptr;
  sd_bus_open_user(&bus);
  const bool isOwned = sd_bus_get_name_creds(bus, busNames::service, 0, nullptr) >= 0;
  sd_bus_flush_close_unref(bus);
  return isOwned;
}

/// The real programs; the bus starts the service.
class NorraCollectTest : public testing::Test {
 protected:
  NorraCollectTest() {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
  }

  PrivateBus bus{NORRA_SERVICES_FOLDER};
};

TEST_F(NorraCollectTest, PrintsEachReportWithItsDateAndStopsTheServiceOnASignal) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    RunningProgram collect("norra-collect");
    const auto first = collect.nextLine();
    EXPECT_EQ(undated(first), start);
    EXPECT_THAT(Json::parse(*first)["date"].get<std::string>(),
                MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}Z"));
    collect.signal(signal);
    EXPECT_EQ(undated(collect.nextLine()), stop);
    EXPECT_EQ(collect.nextLine(), std::nullopt);
    EXPECT_EQ(collect.waitForEnd(), 0);
    EXPECT_FALSE(isServiceRunning());
  }
}

TEST_F(NorraCollectTest, StopsByItselfAfterTheDuration) {
  RunningProgram collect("norra-collect", {"--duration", "0.01", "--format", "text"});
  EXPECT_THAT(collect.nextLine().value_or(""), HasSubstr("Collection started"));
  EXPECT_THAT(collect.nextLine().value_or(""), HasSubstr("Collection stopped"));
  EXPECT_EQ(collect.waitForEnd(), 0);
}

TEST_F(NorraCollectTest, PausesAndResumesOnSignals) {
  RunningProgram collect("norra-collect");
  EXPECT_EQ(undated(collect.nextLine()), start);
  for (int round = 0; round < 2; ++round) {
    collect.signal(SIGUSR1);
    EXPECT_EQ(undated(collect.nextLine()), stop);
    collect.signal(SIGUSR2);
    EXPECT_EQ(undated(collect.nextLine()), start);
  }
  collect.signal(SIGUSR1);
  EXPECT_EQ(undated(collect.nextLine()), stop);
  collect.signal(SIGINT);
  EXPECT_EQ(collect.nextLine(), std::nullopt) << "a paused collector has nothing more to report";
  EXPECT_EQ(collect.waitForEnd(), 0);
  EXPECT_FALSE(isServiceRunning());
}

TEST_F(NorraCollectTest, AppendsToAFileAndEndsAfterACount) {
  const linux_desktop::TemporaryFolder folder;
  const auto path = (folder.path() / "session.jsonl").string();
  for (const auto& lines : {std::vector{start}, std::vector{start, start}}) {
    RunningProgram collect("norra-collect", {"--output", path, "--count", "1"});
    EXPECT_EQ(collect.nextLine(), std::nullopt);
    EXPECT_EQ(collect.waitForEnd(), 0);
    EXPECT_FALSE(isServiceRunning());
    std::ifstream in(path);
    std::vector<std::string> written;
    for (std::string line; std::getline(in, line);) written.push_back(undated(line));
    EXPECT_EQ(written, lines);
  }
}

TEST_F(NorraCollectTest, DoesNotEndWellWhereReportsCouldNotBeWritten) {
  RunningProgram collect("norra-collect", {"--output", "/dev/full", "--duration", "0.01"});
  EXPECT_EQ(collect.waitForEnd(), 3);
  EXPECT_THAT(collect.errors(), HasSubstr("Reports lost at the end: 2."));
}

TEST_F(NorraCollectTest, TakesKindsInAnyLetterCase) {
  RunningProgram collect("norra-collect", {"--kind", "collector", "--count", "1"});
  EXPECT_EQ(undated(collect.nextLine()), start);
  EXPECT_EQ(collect.waitForEnd(), 0);
}

TEST_F(NorraCollectTest, SaysAtItsStartWhatTheServiceCannotSee) {
  RunningProgram collect("norra-collect", {"--duration", "0.01"});
  EXPECT_EQ(collect.waitForEnd(), 0);
  const auto errors = collect.errors();
  EXPECT_THAT(errors, HasSubstr("No X server: clicks and keys are not seen."));
  EXPECT_THAT(errors, HasSubstr("Install at-spi2-core"));
  EXPECT_THAT(errors, HasSubstr("norra-collect --check"));
}

TEST_F(NorraCollectTest, PrintsOnlyTheKindsThatAreWanted) {
  RunningProgram collect("norra-collect", {"--kind", "Click", "--duration", "0.01"});
  EXPECT_EQ(collect.nextLine(), std::nullopt);
  EXPECT_EQ(collect.waitForEnd(), 0);
}

/// What --stats prints, by the words before each value.
std::map<std::string, std::string> statistics() {
  RunningProgram view("norra-collect", {"--stats"});
  std::map<std::string, std::string> values;
  while (const auto line = view.nextLine()) {
    const auto gap = line->find("  ");
    values[line->substr(0, gap)] = line->substr(line->find_first_not_of(' ', gap));
  }
  EXPECT_EQ(view.waitForEnd(), 0) << view.errors();
  return values;
}

TEST_F(NorraCollectTest, ShowsWhatARunningServiceSaysOfItsWork) {
  RunningProgram collect("norra-collect");
  EXPECT_EQ(undated(collect.nextLine()), start);
  const auto values = statistics();
  EXPECT_EQ(values.size(), statisticsNumbers.size() + statisticsTexts.size());
  EXPECT_EQ(values.at("reports sent"), "1");
  EXPECT_EQ(values.at("reports lost"), "0");
  EXPECT_EQ(values.at("click to report, median (µs)"), "0");
  EXPECT_THAT(values.at("clicks and keys"), HasSubstr("No X server"));
  EXPECT_THAT(values.at("windows and applications"), HasSubstr("with DISPLAY set"));
}

TEST_F(NorraCollectTest, StartsNoServiceToShowItsStatistics) {
  RunningProgram view("norra-collect", {"--stats"});
  EXPECT_EQ(view.nextLine(), std::nullopt);
  EXPECT_EQ(view.waitForEnd(), 1);
  EXPECT_THAT(view.errors(), HasSubstr("The service is not running"));
  EXPECT_FALSE(isServiceRunning());
}

TEST_F(NorraCollectTest, ReportsAServiceThatEndsWhileItCollects) {
  RunningProgram service("norra-collector-service");
  ASSERT_TRUE(waitFor(isServiceRunning));
  RunningProgram collect("norra-collect");
  EXPECT_EQ(undated(collect.nextLine()), start);
  service.signal(SIGTERM);
  EXPECT_EQ(collect.waitForEnd(), 3);
  EXPECT_THAT(collect.errors(), HasSubstr("The service ended while it was collecting."));
  EXPECT_EQ(service.waitForEnd(), 0);
  EXPECT_THAT(service.errors(), HasSubstr("Service stopped"));
}

TEST_F(NorraCollectTest, OneClientsStopEndsTheOther) {
  RunningProgram first("norra-collect");
  EXPECT_EQ(undated(first.nextLine()), start);
  RunningProgram second("norra-collect");
  EXPECT_EQ(undated(second.nextLine()), start);
  second.signal(SIGINT);
  EXPECT_EQ(undated(second.nextLine()), stop);
  EXPECT_EQ(second.waitForEnd(), 0);
  EXPECT_EQ(first.waitForEnd(), 3);
}

TEST_F(NorraCollectTest, StopsTheServiceWhenNobodyReadsItsOutput) {
  RunningProgram collect("norra-collect");
  EXPECT_EQ(undated(collect.nextLine()), start);
  collect.closeOutput();
  EXPECT_EQ(collect.waitForEnd(), 3);
  EXPECT_THAT(collect.errors(), HasSubstr("Nobody reads the reports any more."));
  EXPECT_FALSE(isServiceRunning());
}

TEST_F(NorraCollectTest, EndsWhenTheBusIsLost) {
  RunningProgram collect("norra-collect");
  EXPECT_EQ(undated(collect.nextLine()), start);
  bus.kill();
  EXPECT_EQ(collect.waitForEnd(), 3);
  EXPECT_THAT(collect.errors(), HasSubstr("The session bus was lost."));
}

// It waits for the answer to its start, and so cannot say meanwhile what it exports.
TEST_F(NorraCollectTest, TheExampleClientCollects) {
  RunningProgram example("/usr/bin/python3", {NORRA_EXAMPLES "/client.py"});
  EXPECT_EQ(example.nextLine(), "collecting");
  EXPECT_EQ(example.nextLine(), R"({"action":"Collector","operation":"start"})");
}

TEST_F(NorraCollectTest, ASecondServiceSaysThatOneRuns) {
  RunningProgram service("norra-collector-service");
  ASSERT_TRUE(waitFor(isServiceRunning));
  RunningProgram second("norra-collector-service");
  EXPECT_EQ(second.waitForEnd(), 1);
  EXPECT_THAT(second.errors(), HasSubstr("The service runs already"));
}

TEST(NorraCollect, SaysWhatToDoWhereTheServiceIsNotInstalled) {
  const PrivateBus busWithoutServices;
  RunningProgram collect("norra-collect");
  EXPECT_EQ(collect.waitForEnd(), 1);
  EXPECT_THAT(collect.errors(), HasSubstr("Install it, or start norra-collector-service"));
}

TEST(NorraCollect, BothProgramsSayThatThereIsNoSessionBus) {
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  for (const char* program : {"norra-collect", "norra-collector-service"}) {
    RunningProgram running(program);
    EXPECT_EQ(running.waitForEnd(), 1) << program;
    EXPECT_THAT(running.errors(), HasSubstr("The session bus cannot be reached")) << program;
  }
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(NorraCollect, BothProgramsExplainThemselvesAndRefuseWrongArguments) {
  for (const char* program : {"norra-collect", "norra-collector-service"}) {
    RunningProgram help(program, {"--help"});
    EXPECT_THAT(help.nextLine().value_or(""), HasSubstr("desktop")) << program;
    EXPECT_EQ(help.waitForEnd(), 0) << program;
    RunningProgram version(program, {"--version"});
    EXPECT_EQ(version.nextLine(), std::string(program) + " " NORRA_VERSION);
    RunningProgram wrong(program, {"--no-such-option"});
    EXPECT_EQ(wrong.waitForEnd(), 2) << program;
  }
}

TEST(NorraCollect, SaysWhatIsWrongWithAnArgument) {
  const std::vector<std::array<const char*, 3>> rows = {
      {"--duration", "-1", "--duration: -1 is not a number of seconds"},
      {"--duration", "soon", "--duration: soon is not a number of seconds"},
      {"--count", "0", "--count: 0 is not a whole number above 0"},
      {"--count", "-2", "--count: -2 is not a whole number above 0"},
      {"--format", "xml", "--format: xml not in {"},
  };
  for (const auto& [option, value, problem] : rows) {
    RunningProgram wrong("norra-collect", {option, value});
    EXPECT_EQ(wrong.waitForEnd(), 2) << option << value;
    EXPECT_THAT(wrong.errors(), HasSubstr(problem));
  }
}

}  // namespace
}  // namespace norra
