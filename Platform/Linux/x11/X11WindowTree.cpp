#include "Platform/Linux/x11/X11WindowTree.h"

#include <algorithm>
#include <cmath>

namespace norra::linux_desktop {
namespace {

// Some window managers put a window of their own between their frame and the client.
constexpr int deepestClient = 3;
constexpr int deepestFocus = 32;
constexpr std::size_t maxWindows = 256;

std::int16_t pixel(double coordinate) {
  return static_cast<std::int16_t>(std::clamp(std::floor(coordinate), -32768.0, 32767.0));
}

}  // namespace

X11TopLevel X11WindowTree::topLevelAt(CGPoint point) {
  const auto frame = childAt(connection_.root(), point);
  if (frame == XCB_NONE) return {};
  const auto below = clientOnTheWayTo(point, frame);
  return {frame, below != XCB_NONE ? below : clientIn(frame)};
}

xcb_window_t X11WindowTree::childAt(xcb_window_t window, CGPoint point) {
  const auto place = connection_.await<&xcb_translate_coordinates_reply>(
      xcb_translate_coordinates(connection_.get(), connection_.root(), window, pixel(point.x), pixel(point.y)));
  return place ? place->child : xcb_window_t{XCB_NONE};
}

xcb_window_t X11WindowTree::clientOnTheWayTo(CGPoint point, xcb_window_t frame) {
  auto window = frame;
  for (int depth = 0; depth < deepestClient && window != XCB_NONE; ++depth) {
    const auto state = connection_.askProperty(window, X11Atom::windowManagerState);
    const auto below = childAt(window, point);
    if (firstItemOf(connection_.await<&xcb_get_property_reply>(state))) return window;
    window = below;
  }
  return XCB_NONE;
}

// The pointer may be on what the window manager drew; and a window that nobody manages is its own client.
xcb_window_t X11WindowTree::clientIn(xcb_window_t frame) {
  std::vector<xcb_window_t> level{frame};
  for (int depth = 0; depth < deepestClient; ++depth) {
    if (const auto client = firstManaged(level); client != XCB_NONE) return client;
    level = childrenOf(level);
  }
  return frame;
}

xcb_window_t X11WindowTree::firstManaged(const std::vector<xcb_window_t>& windows) {
  std::vector<xcb_get_property_cookie_t> requests;
  for (const auto window : windows) {
    requests.push_back(connection_.askProperty(window, X11Atom::windowManagerState));
  }
  xcb_window_t first = XCB_NONE;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const bool isManaged = firstItemOf(connection_.await<&xcb_get_property_reply>(requests[i])).has_value();
    if (isManaged && first == XCB_NONE) first = windows[i];
  }
  return first;
}

std::vector<xcb_window_t> X11WindowTree::childrenOf(const std::vector<xcb_window_t>& windows) {
  std::vector<xcb_query_tree_cookie_t> requests;
  for (const auto window : windows) requests.push_back(xcb_query_tree(connection_.get(), window));
  std::vector<xcb_window_t> children;
  for (const auto request : requests) {
    const auto tree = connection_.await<&xcb_query_tree_reply>(request);
    if (!tree) continue;
    const auto* first = xcb_query_tree_children(tree.get());
    children.insert(children.end(), first, first + xcb_query_tree_children_length(tree.get()));
  }
  if (children.size() > maxWindows) children.erase(children.begin(), children.end() - maxWindows);
  return children;
}

X11TopLevel X11WindowTree::topLevelAround(xcb_window_t window) {
  for (int depth = 0; depth < deepestFocus && window != XCB_NONE; ++depth) {
    const auto tree = connection_.await<&xcb_query_tree_reply>(xcb_query_tree(connection_.get(), window));
    if (!tree || tree->parent == XCB_NONE) return {};
    if (tree->parent == tree->root) return {window, clientIn(window)};
    window = tree->parent;
  }
  return {};
}

xcb_window_t X11WindowTree::activeClient() {
  const auto check = connection_.askProperty(connection_.root(), X11Atom::netSupportingWindowManagerCheck);
  const auto active = connection_.askProperty(connection_.root(), X11Atom::netActiveWindow);
  const auto focus = xcb_get_input_focus(connection_.get());
  const auto checkWindow = firstItemOf(connection_.await<&xcb_get_property_reply>(check));
  const auto activeWindow = firstItemOf(connection_.await<&xcb_get_property_reply>(active));
  const auto focused = connection_.await<&xcb_get_input_focus_reply>(focus);
  if (isWindowManager(checkWindow)) return activeWindow.value_or(XCB_NONE);
  if (!focused || focused->focus <= XCB_INPUT_FOCUS_POINTER_ROOT) return XCB_NONE;
  return topLevelAround(focused->focus).client;
}

bool X11WindowTree::hasWindowManager() {
  const auto check = connection_.askProperty(connection_.root(), X11Atom::netSupportingWindowManagerCheck);
  return isWindowManager(firstItemOf(connection_.await<&xcb_get_property_reply>(check)));
}

// A window manager that was killed leaves the property on the root; its own window has gone, or its number was given
// to another window since.
bool X11WindowTree::isWindowManager(std::optional<xcb_window_t> checkWindow) {
  if (!checkWindow) return false;
  const auto request = connection_.askProperty(*checkWindow, X11Atom::netSupportingWindowManagerCheck);
  return firstItemOf(connection_.await<&xcb_get_property_reply>(request)) == checkWindow;
}

std::vector<xcb_window_t> X11WindowTree::clients() {
  const auto request = connection_.askProperty(connection_.root(), X11Atom::netClientListStacking);
  auto windows = itemsOf(connection_.await<&xcb_get_property_reply>(request));
  if (windows.empty()) windows = childrenOf({connection_.root()});
  if (windows.size() > maxWindows) windows.erase(windows.begin(), windows.end() - maxWindows);
  std::ranges::reverse(windows);
  return windows;
}

}  // namespace norra::linux_desktop
