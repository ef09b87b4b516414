#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>

#include "Platform/Linux/applications/RunningApplications.h"
#include "Platform/Linux/x11/X11Windows.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/PrivateDisplay.h"

namespace norra::linux_desktop {
namespace {

namespace fs = std::filesystem;

class RunningApplicationsTest : public testing::Test {
 protected:
  void install(const std::string& identifier, const std::string& name) const {
    std::ofstream(folder / (identifier + ".desktop")) << "[Desktop Entry]\nType=Application\nName=" << name << "\n";
  }

  std::string bundleIdentifier() { return applications.application(getpid())->bundleIdentifier.value_or("none"); }

  const TemporaryFolder temporary;
  const fs::path folder = temporary.path();
  PrivateDisplay display;
  const std::unique_ptr<X11Connection> client = display.connect();
  X11Windows windows{display.connect(), display.connect()};
  DesktopFiles desktopFiles{{folder}, "C"};
  RunningApplications applications{windows, desktopFiles};
};

TEST_F(RunningApplicationsTest, HaveTheIdentifiersThatTheCoreKnowsBrowsersBy) {
  const std::vector<std::pair<std::string, std::string>> identifiers{
      {"chromium", "com.google.Chrome"},           {"google-chrome", "com.google.Chrome"},
      {"microsoft-edge", "com.microsoft.edgemac"}, {"brave-browser", "com.brave.Browser"},
      {"vivaldi-stable", "com.vivaldi.Vivaldi"},   {"opera", "com.operasoftware.Opera"},
      {"google-chrome-beta", "google-chrome-beta"}};
  for (const auto& [file, identifier] : identifiers) {
    install(file, "Browser");
    const TestWindow window(*client, {.className = file});
    const auto application = applications.applicationOf({.window = window.get(),
                                                         .process = getpid(),
                                                         .instanceName = {},
                                                         .className = file,
                                                         .gtkApplicationIdentifier = {},
                                                         .kdeDesktopFile = {}});
    ASSERT_TRUE(application);
    EXPECT_EQ(application->bundleIdentifier, identifier);
    EXPECT_EQ(application->localizedName, "Browser");
  }
}

TEST_F(RunningApplicationsTest, AreRememberedUntilTheirWindowsOrFilesChange) {
  install("mail", "Mail");
  install("news", "News");
  EXPECT_EQ(bundleIdentifier(), "none");
  const TestWindow mail(*client, {.className = "mail"});
  EXPECT_EQ(bundleIdentifier(), "none");
  applications.windowsDidChange();
  EXPECT_EQ(bundleIdentifier(), "mail");
  fs::remove(folder / "mail.desktop");
  EXPECT_EQ(bundleIdentifier(), "none");
}

TEST_F(RunningApplicationsTest, TakeTheTopmostWindowOfAProcess) {
  install("mail", "Mail");
  install("news", "News");
  const TestWindow mail(*client, {.className = "mail"});
  const TestWindow news(*client, {.className = "news"});
  EXPECT_EQ(bundleIdentifier(), "news");
}

TEST_F(RunningApplicationsTest, HaveAnAddressForAnyPathOfTheirExecutable) {
  const auto program = folder / "a program%41 \xC3\xBC";
  fs::copy("/bin/sleep", program);
  const ChildProgram sleeping({program.string(), "1000"});
  const auto url = [&] { return applications.application(sleeping.process())->executableURL->absoluteString; };
  const auto expected = "file://" + folder.string() + "/a%20program%2541%20%C3%BC";
  EXPECT_TRUE(waitUntil([&] { return url() == expected; })) << url();
}

TEST_F(RunningApplicationsTest, AreCalledByTheirWindowsAndScriptsWhereNoFileNamesThem) {
  std::ofstream(folder / "harbour.py") << "import time\ntime.sleep(1000)\n";
  const ChildProgram script({"/usr/bin/python3", (folder / "harbour.py").string()});
  const auto url = [&] { return applications.application(script.process())->executableURL->absoluteString; };
  const auto expected = "file://" + folder.string() + "/harbour.py";
  EXPECT_TRUE(waitUntil([&] { return url() == expected; })) << url();
  EXPECT_EQ(applications.application(script.process())->localizedName, "harbour.py");
  const TestWindow ledger(*client, {.className = "Ledger"});
  EXPECT_EQ(applications.application(getpid())->localizedName, "Ledger");
}

}  // namespace
}  // namespace norra::linux_desktop
