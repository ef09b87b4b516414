#include "Platform/Linux/wayland/WaylandWindows.h"

#include <utility>

#include "Platform/Linux/display/WindowsOnScreen.h"

namespace norra::linux_desktop {
namespace {

// The identifier finds a desktop file. Where it finds none it is no name, but what the toolkit puts there.
ApplicationWindow applicationOf(const CompositorWindow& window) {
  return {.window = window.onScreen.window,
          .process = window.onScreen.process,
          .instanceName = window.applicationIdentifier,
          .className = {},
          .gtkApplicationIdentifier = window.applicationIdentifier,
          .kdeDesktopFile = {}};
}

WindowOnScreen windowOf(ActiveTopLevel topLevel) {
  WindowOnScreen window;
  window.window = topLevel.identity;
  window.process = topLevel.process;
  window.title = std::move(topLevel.title);
  return window;
}

// With its places as its application knows them.
WindowOnScreen inItself(WindowOnScreen window) {
  window.isOfWayland = true;
  window.frame.x -= std::exchange(window.client.x, 0);
  window.frame.y -= std::exchange(window.client.y, 0);
  return window;
}

}  // namespace

std::optional<PointedWindow> WaylandWindows::pointed() { return compositor_ ? compositor_->pointed() : std::nullopt; }

void WaylandWindows::whenPointerIsTold(std::function<void()> then) {
  if (compositor_ && compositor_->isTelling()) return compositor_->whenPointerIsTold(std::move(then));
  then();
}

bool WaylandWindows::isX11InFront() {
  const auto told = compositor_ ? compositor_->activeWindow() : std::nullopt;
  return told ? told->isOfX11 : activeX11Window().has_value();
}

// On the screen.
std::optional<WindowOnScreen> WaylandWindows::windowOfWaylandAt(CGPoint point) {
  {
    const std::lock_guard lock(mutex_);
    if (press_ && isSamePlace(press_->place, point)) return press_->window;
  }
  const auto now = pointed();
  if (!now || !now->window || !isSamePlace(now->pointer, point)) return std::nullopt;
  return now->window->onScreen;
}

std::optional<WindowOnScreen> WaylandWindows::topLevelWindowAt(CGPoint point) {
  if (isInputOfX11_) return xServer_ ? xServer_->windows().topLevelWindowAt(point) : std::nullopt;
  auto window = windowOfWaylandAt(point);
  return window ? std::optional(inItself(*std::move(window))) : std::nullopt;
}

CGPoint WaylandWindows::inApplication(CGPoint point) {
  const auto window = isInputOfX11_ ? std::nullopt : windowOfWaylandAt(point);
  return window ? CGPoint{point.x - window->client.x, point.y - window->client.y} : point;
}

void WaylandWindows::notePress(std::optional<CGPoint> place) {
  if (isInputOfX11_ && xServer_) return xServer_->windows().notePress(place);
  const auto now = place ? pointed() : std::nullopt;
  const std::lock_guard lock(mutex_);
  press_.reset();
  if (now && now->window && isSamePlace(now->pointer, *place)) press_ = {*place, now->window->onScreen};
}

// Of a window of Wayland's own the X server says that none of its own is active.
std::optional<WindowOnScreen> WaylandWindows::activeX11Window() {
  auto window = xServer_ ? xServer_->windows().activeWindow() : std::nullopt;
  return window && window->process != 0 ? std::move(window) : std::nullopt;
}

bool WaylandWindows::isCompositorTelling() { return compositor_ && compositor_->isTelling(); }

// Not asked where the compositor knows.
std::optional<ActiveTopLevel> WaylandWindows::activeTopLevel() {
  return topLevels_ && !isCompositorTelling() ? topLevels_->active() : std::nullopt;
}

std::optional<WindowOnScreen> WaylandWindows::activeWindow() {
  const auto told = compositor_ ? compositor_->activeWindow() : std::nullopt;
  if (told && !told->isOfX11) return told->onScreen;
  if (auto window = activeX11Window()) return window;
  if (told) return told->onScreen;
  auto topLevel = activeTopLevel();
  if (!topLevel) return std::nullopt;
  return windowOf(*std::move(topLevel));
}

std::optional<FrontWindow> WaylandWindows::front() {
  const auto told = compositor_ ? compositor_->activeWindow() : std::nullopt;
  const auto ofX11 = xServer_ && !(told && !told->isOfX11) ? xServer_->applications().front() : std::nullopt;
  if (ofX11 && ofX11->application.process != 0) return ofX11;
  if (told) return FrontWindow{linux_desktop::applicationOf(*told), told->onScreen.title};
  auto topLevel = activeTopLevel();
  if (!topLevel) return std::nullopt;
  ApplicationWindow application;
  application.window = topLevel->identity;
  application.process = topLevel->process;
  return FrontWindow{std::move(application), std::move(topLevel->title)};
}

std::optional<ApplicationWindow> WaylandWindows::applicationOf(ProcessIdentifier process) {
  const auto told = compositor_ ? compositor_->windowOf(process) : std::nullopt;
  if (told && !told->isOfX11) return linux_desktop::applicationOf(*told);
  return xServer_ ? xServer_->applications().applicationOf(process) : std::nullopt;
}

}  // namespace norra::linux_desktop
