#include "Platform/Linux/wayland/WaylandWindows.h"

#include <utility>

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

}  // namespace

std::optional<WindowOnScreen> WaylandWindows::topLevelWindowAt(CGPoint point) {
  return xServer_ ? xServer_->windows().topLevelWindowAt(point) : std::nullopt;
}

void WaylandWindows::notePress(std::optional<CGPoint> place) {
  if (xServer_) xServer_->windows().notePress(place);
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
