// What compositors say of their windows, as texts.
#include <gmock/gmock.h>

#include "Platform/Linux/wayland/CompositorState.h"
#include "Platform/Linux/wayland/KWinScript.h"
#include "Platform/Linux/wayland/SwayWindows.h"

namespace norra::linux_desktop {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

constexpr const char* tree =
    R"({"type": "root", "focused": false, "nodes": [{"type": "workspace", "focused": false, "nodes": [
    {"id": 5, "pid": 70, "name": "Ledger", "app_id": "org.example.Ledger", "shell": "xdg_shell", "focused": false,
     "nodes": [], "floating_nodes": []}],
   "floating_nodes": [
    {"id": 6, "pid": 71, "name": null, "app_id": null, "shell": "xwayland", "focused": true, "nodes": [],
     "floating_nodes": []}]}]})";

TEST(SwayTree, HasWindowsAtAnyDepthAndTheOneInFront) {
  const auto [windows, active] = readSwayTree(tree);
  ASSERT_THAT(windows, SizeIs(2));
  EXPECT_EQ(windows[0].onScreen.process, 70);
  EXPECT_EQ(windows[0].onScreen.title, "Ledger");
  EXPECT_EQ(windows[0].applicationIdentifier, "org.example.Ledger");
  EXPECT_FALSE(windows[0].isOfX11);
  ASSERT_TRUE(active);
  EXPECT_EQ(active->onScreen.window, 6);
  EXPECT_TRUE(active->isOfX11);
  EXPECT_EQ(active->onScreen.title, "");
}

TEST(SwayTree, IsEmptyWhereItIsNoTree) {
  for (const auto* text : {"", "{", "[1]", "7", R"({"nodes": 3, "pid": "x"})", R"({"focused": true, "nodes": []})"}) {
    const auto [windows, active] = readSwayTree(text);
    EXPECT_TRUE(windows.empty() && !active) << text;
  }
}

std::string stateWith(const std::string& frame, const std::string& buffer) {
  return R"({"active": null, "pointer": [7, 8.5], "pointed": {"id": "{a}", "process": 70, "title": "Ledger",
      "application": "ledger", "isOfX11": false, "isPopUp": true, "frame": )" +
         frame + R"(, "buffer": )" + buffer + "}}";
}

TEST(CompositorState, HasTheShadowThatAClientDrawsAndNotTheFrameThatTheCompositorDraws) {
  const auto drawsShadow = readCompositorState(stateWith("[100, 50, 700, 600]", "[74, 27, 752, 653]"));
  ASSERT_TRUE(drawsShadow && drawsShadow->pointed && drawsShadow->pointed->window);
  const auto& window = drawsShadow->pointed->window->onScreen;
  EXPECT_EQ(window.shadow, (ShadowExtents{.left = 26, .right = 26, .top = 23, .bottom = 30}));
  EXPECT_EQ(window.client, (ScreenRectangle{74, 27, 752, 653}));
  EXPECT_TRUE(window.overrideRedirect);
  EXPECT_EQ(drawsShadow->pointed->pointer.y, 8.5);
  const auto hasFrame = readCompositorState(stateWith("[100, 50, 700, 630]", "[100, 80, 700, 600]"));
  ASSERT_TRUE(hasFrame && hasFrame->pointed && hasFrame->pointed->window);
  EXPECT_EQ(hasFrame->pointed->window->onScreen.shadow, ShadowExtents{});
}

TEST(CompositorState, IsRefusedWhereItIsNone) {
  for (const auto* text : {"", "{", "[]", R"({"active": {"id": 3}})", R"({"active": null, "pointer": [1]})"}) {
    EXPECT_FALSE(readCompositorState(text)) << text;
  }
  EXPECT_FALSE(readCompositorState(R"({"active": null})")->active);
}

TEST(KWinScript, NamesItsListenerAsAConstant) {
  EXPECT_THAT(kwinScriptFor(R"(:1.7"; evil)", true), HasSubstr(R"(const listener = ":1.7\"; evil";)"));
}

}  // namespace
}  // namespace norra::linux_desktop
