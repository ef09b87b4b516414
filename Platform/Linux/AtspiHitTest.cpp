#include "Platform/Linux/AtspiHitTest.h"

#include <algorithm>
#include <cmath>

#include "Platform/Linux/AtspiContext.h"
#include "Platform/Linux/AtspiFocus.h"
#include "Platform/Linux/HitTestByToolkit.h"
#include "Platform/Linux/PlacedElements.h"

namespace norra::linux_desktop {
namespace {

// GTK 4 does not say where its windows are, only how large.
double distance(const AtspiRectangle& place, const ScreenRectangle& window, Coordinates coordinates) {
  const auto size = std::abs(place.width - window.width) + std::abs(place.height - window.height);
  if (coordinates == Coordinates::ofWindow) return size;
  return size + std::abs(place.x - window.x) + std::abs(place.y - window.y);
}

// The top-level accessible that looks most like the window.
AtspiReference topLevelOf(const ElementView& root, const WindowOnScreen& window) {
  const auto coordinates = root.toolkit() == Toolkit::gtk4 ? Coordinates::ofWindow : Coordinates::ofScreen;
  const PlacedElement* best = nullptr;
  double bestDistance = 0;
  const auto topLevels = fewPlacedChildren(root, coordinates);
  for (const auto& one : topLevels) {
    if (!one.place || !hasState(one.states, AtspiState::visible)) continue;
    const auto difference =
        std::min(distance(*one.place, window.client, coordinates), distance(*one.place, window.frame, coordinates));
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

// The list of a combo box opens under the pointer, on the item that is chosen. Until an item of it is highlighted, the
// click that opened it is not over.
AtspiReference comboBoxThatOpens(AtspiContext& context, const AtspiReference& hit) {
  const ElementView view(context, context.reader(), hit);
  if (!isItemOfMenu(view)) return hit;
  const auto comboBox = comboBoxOf(view);
  if (comboBox.isNull()) return hit;
  return context.highlightedItems.isOpen(comboBox, std::chrono::steady_clock::now()) ? hit : comboBox;
}

AtspiReference hitTestBelow(AtspiContext& context, const AtspiReference& topLevel, CGPoint point,
                            const WindowOnScreen& window) {
  auto& reader = context.reader();
  const auto hit = hitTest(ElementView(context, reader, topLevel), point, window);
  reader.notePath(hit);
  return comboBoxThatOpens(context, hit);
}

AtspiReference findTopLevel(AtspiContext& context, const WindowOnScreen& window) {
  auto& reader = context.reader();
  const auto root = context.processes.rootOf(window.process, reader);
  if (root.isNull()) return {};
  const auto topLevel = topLevelOf(ElementView(context, reader, root), window);
  if (!topLevel.isNull()) context.topLevels.note(window, topLevel);
  return topLevel;
}

AtspiReference elementIn(AtspiContext& context, const WindowOnScreen& window, CGPoint point) {
  const auto known = context.topLevels.find(window);
  if (!known.isNull()) {
    const auto hit = hitTestBelow(context, known, point, window);
    if (context.reader().read(known, Ask::role).answered(Ask::role)) return hit;
    context.topLevels.forget(window);
  }
  const auto topLevel = findTopLevel(context, window);
  if (!topLevel.isNull()) return hitTestBelow(context, topLevel, point, window);
  if (context.processes.busNamesOf(window.process, context.reader()).empty()) context.noteMissing(window);
  return {};
}

}  // namespace

AtspiReference elementAt(AtspiContext& context, CGPoint point) {
  auto found = context.highlightedItems.clicked(point, std::chrono::steady_clock::now());
  if (found.isNull()) {
    const auto window = context.windows.topLevelWindowAt(point);
    if (!window || window->process == 0) return {};
    found = elementIn(context, *window, point);
  }
  context.reader().notePath(found);
  return found;
}

}  // namespace norra::linux_desktop
