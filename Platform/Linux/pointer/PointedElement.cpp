#include "Platform/Linux/pointer/PointedElement.h"

#include <algorithm>
#include <cmath>

#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/pointer/HitTestByToolkit.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/reading/AtspiContext.h"

namespace norra::linux_desktop {
namespace {

// GTK 4 does not say where its windows are, only how large.
double distance(const AtspiRectangle& place, const ScreenRectangle& window, Coordinates coordinates) {
  const auto size = std::abs(place.width - window.width) + std::abs(place.height - window.height);
  if (coordinates == Coordinates::ofWindow) return size;
  return size + std::abs(place.x - window.x) + std::abs(place.y - window.y);
}

// A menu or another pop-up may have no accessible of its own, and must not be taken for what lies below it.
constexpr double mostDistanceOfPopUp = 100;
constexpr double mostDistanceOfPopover = 80;
constexpr int mostLevelsOfPopover = 16;

bool mayBe(const WindowOnScreen& window, double distance) {
  return !window.overrideRedirect || distance <= mostDistanceOfPopUp;
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
  return best && mayBe(window, bestDistance) ? best->reference : AtspiReference{};
}

bool isAt(const ElementView& view, CGPoint point) {
  return !view.reference().isNull() && contains(view.needOnly(Ask::extents).extents, point);
}

// While a list is open, Gecko finds nothing in the window below it. The element that opened it was pressed, and has the
// keyboard focus.
AtspiReference hitTestGecko(const ElementView& topLevel, CGPoint point) {
  auto found = hitTestWeb(topLevel, point);
  if (found != topLevel.reference()) return found;
  auto& context = topLevel.context();
  const auto pressed = context.pressed.at(point);
  if (!pressed.isNull()) return withoutHiddenOption(topLevel, pressed);
  const auto focused = settleFocus(context, found.busName);
  return isAt(topLevel.other(focused), point) ? focused : found;
}

AtspiReference hitTest(const ElementView& topLevel, CGPoint point, const WindowOnScreen& window) {
  switch (topLevel.toolkit()) {
    case Toolkit::gtk3: return hitTestGtk3(topLevel, point);
    case Toolkit::gtk4: return hitTestGtk4(topLevel, point, window);
    case Toolkit::chromium: return hitTestWeb(topLevel, point);
    case Toolkit::gecko: return hitTestGecko(topLevel, point);
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

// A popover of GTK 4 is a window of its own, while its accessible lies below that of the widget that opened it. The
// keyboard focus went into it.
AtspiReference popoverOf(const ElementView& root, const WindowOnScreen& window) {
  AtspiReference best;
  double bestDistance = mostDistanceOfPopover;
  auto current = root.context().focus.lastArrival(root.reference().busName);
  for (int level = 0; level < mostLevelsOfPopover && !current.isNull(); ++level) {
    const auto& facts = root.other(current).needOnly({Ask::windowExtents, Ask::role, Ask::parent});
    if (static_cast<AtspiRole>(facts.role) == AtspiRole::frame) break;
    const auto difference = distance(facts.windowExtents, window.client, Coordinates::ofWindow);
    if (facts.answered(Ask::windowExtents) && difference < bestDistance) {
      best = current;
      bestDistance = difference;
    }
    current = facts.parent;
  }
  return best;
}

bool isPopover(const WindowOnScreen& window, Toolkit toolkit) {
  return window.overrideRedirect && toolkit == Toolkit::gtk4;
}

AtspiReference windowOrPopover(const ElementView& root, const WindowOnScreen& window) {
  return isPopover(window, root.toolkit()) ? popoverOf(root, window) : topLevelOf(root, window);
}

AtspiReference findTopLevel(AtspiContext& context, const WindowOnScreen& window) {
  auto& reader = context.reader();
  const auto root = context.processes.rootOf(window.process, reader);
  if (root.isNull()) return {};
  auto topLevel = windowOrPopover(ElementView(context, reader, root), window);
  if (!topLevel.isNull()) context.topLevels.note(window, topLevel);
  return topLevel;
}

// The list of a select in a page has no accessible of its own, and nothing in it is highlighted below the pointer. What
// the option says now is what it is called when it has gone.
AtspiReference optionAt(AtspiContext& context, std::string_view busName, CGPoint point) {
  const auto highlighted = context.highlightedItems.highlightedIn(busName);
  if (highlighted.isNull()) return {};
  const ElementView item(context, context.reader(), highlighted);
  auto option = childAtHeight(item.other(item.need(Ask::parent).parent), point);
  if (option.isNull() || !item.other(option).hasState(AtspiState::showing)) return {};
  comboBoxOf(item.other(option));
  return option;
}

AtspiReference elementIn(AtspiContext& context, const WindowOnScreen& window, CGPoint point) {
  auto pressed = window.overrideRedirect ? context.pressed.at(point) : AtspiReference{};
  if (!pressed.isNull()) return pressed;
  const auto known = context.topLevels.find(window);
  if (!known.isNull()) {
    auto hit = hitTestBelow(context, known, point, window);
    if (context.reader().read(known, Ask::role).answered(Ask::role)) return hit;
    context.topLevels.forget(window);
  }
  const auto topLevel = findTopLevel(context, window);
  if (!topLevel.isNull()) return hitTestBelow(context, topLevel, point, window);
  // An application that has just opened a menu may still tell which item of it is highlighted.
  if (window.overrideRedirect) return context.processes.rootOf(window.process, context.reader());
  if (context.processes.busNamesOf(window.process, context.reader()).empty()) context.noteMissing(window);
  return {};
}

AtspiReference pressedInBrowser(AtspiContext& context, const WindowOnScreen& window, CGPoint point) {
  auto topLevel = context.topLevels.find(window);
  if (topLevel.isNull()) topLevel = findTopLevel(context, window);
  return topLevel.isNull() ? AtspiReference{} : toolkitsAnswer({context, context.reader(), topLevel}, point);
}

// Null without a call for applications that need not be asked.
AtspiReference pressedElement(AtspiContext& context, const WindowOnScreen& window, CGPoint point) {
  for (const auto& name : context.processes.busNamesOf(window.process, context.reader())) {
    const auto application = context.applications.find(name);
    if (!application) continue;
    if (isPopover(window, application->toolkit)) return elementIn(context, window, point);
    if (!application->showsWebPages()) continue;
    return window.overrideRedirect ? optionAt(context, name, point) : pressedInBrowser(context, window, point);
  }
  return {};
}

}  // namespace

void notePress(AtspiContext& context, std::optional<CGPoint> place) {
  context.pressed.forget();
  const auto window = place ? context.windows.topLevelWindowAt(*place) : std::nullopt;
  if (!window || window->process == 0) return;
  const auto pressed = pressedElement(context, *window, *place);
  if (context.topLevels.find(*window) != pressed) context.pressed.note(*place, pressed);
}

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
