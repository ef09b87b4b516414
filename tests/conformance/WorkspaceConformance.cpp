#include "tests/conformance/ConformanceTest.h"

namespace norra::conformance {
namespace {

using testing::ElementsAre;

std::optional<ProcessIdentifier> processOf(const std::optional<NSRunningApplication>& application) {
  return application ? std::optional(application->processIdentifier) : std::nullopt;
}

/// Appends the process of each activation; 0: of none.
ActivationHandler noting(std::vector<ProcessIdentifier>& seen) {
  return [&seen](const auto& application) { seen.push_back(processOf(application).value_or(0)); };
}

TEST_P(WorkspaceConformance, KnowsWhichApplicationIsInFront) {
  const auto notes = desktop->startApplication("Notes");
  const auto mail = desktop->startApplication("Mail");
  for (const auto application : {notes, mail, notes}) {
    desktop->activate(application);
    EXPECT_TRUE(serveUntil([&] { return processOf(platform().workspace.frontmostApplication()) == application; }));
  }
}

TEST_P(WorkspaceConformance, TellsOfActivationsInTheirOrderOnTheMainThread) {
  const auto notes = desktop->startApplication("Notes");
  const auto mail = desktop->startApplication("Mail");
  desktop->activate(mail);
  ASSERT_TRUE(serveUntil([&] { return processOf(platform().workspace.frontmostApplication()) == mail; }));
  std::vector<ProcessIdentifier> seen;
  const auto registration = platform().workspace.onActivation([&](const auto& application) {
    EXPECT_TRUE(platform().mainRunLoop.isCurrent());
    noting(seen)(application);
  });
  for (const auto application : {notes, mail, notes}) {
    desktop->activate(application);
    EXPECT_TRUE(serveUntil([&] { return !seen.empty() && seen.back() == application; }));
  }
  EXPECT_THAT(seen, ElementsAre(notes, mail, notes));
}

TEST_P(WorkspaceConformance, TellsNothingOnceTheRegistrationIsLetGo) {
  const auto notes = desktop->startApplication("Notes");
  const auto mail = desktop->startApplication("Mail");
  std::vector<ProcessIdentifier> seen;
  std::vector<ProcessIdentifier> seenByAnother;
  auto registration = platform().workspace.onActivation(noting(seen));
  const auto another = platform().workspace.onActivation(noting(seenByAnother));
  registration.reset();
  seen.clear();
  for (const auto application : {notes, mail}) {
    desktop->activate(application);
    EXPECT_TRUE(serveUntil([&] { return !seenByAnother.empty() && seenByAnother.back() == application; }));
  }
  EXPECT_THAT(seen, testing::IsEmpty());
}

TEST_P(WorkspaceConformance, LooksUpRunningApplications) {
  const auto notes = desktop->startApplication("Notes");
  auto& workspace = platform().workspace;
  EXPECT_EQ(processOf(workspace.runningApplication(notes)), notes);
  EXPECT_EQ(processOf(workspace.runningApplication(0)), std::nullopt);
  EXPECT_EQ(processOf(workspace.runningApplication(-1)), std::nullopt);
  desktop->endApplication(notes);
  EXPECT_TRUE(serveUntil([&] { return !workspace.runningApplication(notes); }));
  EXPECT_TRUE(serveUntil([&] { return processOf(workspace.frontmostApplication()) != notes; }));
}

TEST_P(WorkspaceConformance, SaysTheSameOfAnApplicationEverywhere) {
  const auto notes = desktop->startApplication("Notes");
  desktop->activate(notes);
  auto& workspace = platform().workspace;
  ASSERT_TRUE(serveUntil([&] { return processOf(workspace.frontmostApplication()) == notes; }));
  const auto same = [inFront = *workspace.frontmostApplication()](const auto& application) {
    return application && application->bundleIdentifier == inFront.bundleIdentifier &&
           application->executableURL == inFront.executableURL && application->localizedName == inFront.localizedName;
  };
  EXPECT_TRUE(same(workspace.runningApplication(notes)));
  const auto executor = platform().serialExecutors.createSerialExecutor();
  ASSERT_TRUE(runOn(*executor, [&] {
    EXPECT_TRUE(same(workspace.runningApplication(notes)));
    EXPECT_TRUE(same(workspace.frontmostApplication()));
  }));
}

INSTANTIATE_TEST_SUITE_P(Desktop, WorkspaceConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
