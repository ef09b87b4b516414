#include "Platform/Linux/AtspiHitTest.h"

#include <algorithm>
#include <cmath>

#include "Platform/Linux/AtspiContext.h"
#include "Platform/Linux/HitTestByToolkit.h"
#include "Platform/Linux/PlacedElements.h"

namespace norra::linux_desktop {
namespace {

double distance(const AtspiRectangle& place, const ScreenRectangle& window) {
  return std::abs(place.x - window.x) + std::abs(place.y - window.y) + std::abs(place.width - window.width) +
         std::abs(place.height - window.height);
}

// The top-level accessible that looks most like the window. GTK 4 does not say where its windows are, only how large.
AtspiReference topLevelOf(const ElementView& root, const WindowOnScreen& window) {
  const PlacedElement* best = nullptr;
  double bestDistance = 0;
  const auto topLevels = placedChildren(root, Coordinates::ofScreen);
  for (const auto& one : topLevels) {
    if (!one.place || !hasState(one.states, AtspiState::visible)) continue;
    const auto difference = std::min(distance(*one.place, window.client), distance(*one.place, window.frame));
    if (!best || difference < bestDistance) {
      best = &one;
      bestDistance = difference;
    }
  }
  return best ? best->reference : AtspiReference{};
}

AtspiReference hitTest(const ElementView& topLevel, CGPoint point, const WindowOnScreen& window) {
  switch (topLevel.toolkit()) {
    case Toolkit::gtk3: return hitTestGtk3(topLevel, point);
    case Toolkit::gtk4: return hitTestGtk4(topLevel, point, window);
    case Toolkit::chromium:
    case Toolkit::gecko: return hitTestWeb(topLevel, point);
    case Toolkit::qt:
    case Toolkit::other: return hitTestQt(topLevel, point);
  }
  return {};
}

AtspiReference onPath(AtspiContext& context, AtspiReference element) {
  context.reader().notePath(element);
  return element;
}

}  // namespace

AtspiReference elementAt(AtspiContext& context, CGPoint point) {
  const auto item = context.highlightedItems.at(point, std::chrono::steady_clock::now());
  if (!item.isNull()) return onPath(context, item);
  const auto window = context.windows.topLevelWindowAt(point);
  if (!window) return {};
  auto& reader = context.reader();
  const auto root = context.processes.rootOf(window->process, reader);
  if (root.isNull()) return {};
  const auto topLevel = topLevelOf(ElementView(context, reader, root), *window);
  if (topLevel.isNull()) return {};
  return onPath(context, hitTest(ElementView(context, reader, topLevel), point, *window));
}

}  // namespace norra::linux_desktop
