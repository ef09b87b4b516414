#include <gmock/gmock.h>

#include "Platform/Linux/applications/ProcessFacts.h"

namespace norra::linux_desktop {
namespace {

TEST(Sandboxes, AreNamedByTheirControlGroup) {
  EXPECT_EQ(sandboxedApplication("0::/user.slice/app.slice/app-flatpak-org.example.App-4711.scope\n"),
            "org.example.App");
  EXPECT_EQ(sandboxedApplication("0::/user.slice/session-2.scope\n"), std::nullopt);
  EXPECT_EQ(sandboxedApplication("0::/app-flatpak-.scope"), std::nullopt);
  EXPECT_EQ(sandboxedApplication(""), std::nullopt);
}

}  // namespace
}  // namespace norra::linux_desktop
