#include "Platform/Linux/pointer/HitTestByToolkit.h"

#include <algorithm>
#include <string_view>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/pointer/PlacedElements.h"

namespace norra::linux_desktop {
namespace {

constexpr int mostLevels = 40;
// A tab says only where its label is.
constexpr std::int32_t marginOfTab = 16;
constexpr std::int64_t mostColumns = 64;
// What GTK 4 calls buttons that have no name.
constexpr std::string_view nameOfButtonInDropDown = "GtkToggleButton";
constexpr int mostLevelsInDropDown = 8;

AtspiCall hitTestCall(const AtspiReference& element, CGPoint point, std::uint32_t coordinates) {
  return {element,
          "org.a11y.atspi.Component",
          "GetAccessibleAtPoint",
          {static_cast<std::int32_t>(point.x), static_cast<std::int32_t>(point.y), coordinates}};
}

// What is asked of the element itself travels along.
AtspiReference ask(const ElementView& view, CGPoint point, std::uint32_t coordinates, Asks asks = {}) {
  const AtspiQuestion question{view.reference(), asks};
  const auto replies = view.reader().read({&question, 1}, {hitTestCall(view.reference(), point, coordinates)});
  auto answer = readReference(replies.front().message.get());
  return answer ? *answer : AtspiReference{};
}

AtspiRectangle inflated(AtspiRectangle place, std::int32_t margin) {
  return {place.x - margin, place.y - margin / 2, place.width + 2 * margin, place.height + margin};
}

const PlacedElement* tabAt(const std::vector<PlacedElement>& tabs, CGPoint point) {
  for (const auto margin : {0, marginOfTab}) {
    const auto found = std::ranges::find_if(
        tabs, [&](const auto& tab) { return tab.place && contains(inflated(*tab.place, margin), point); });
    if (found != tabs.end()) return &*found;
  }
  return nullptr;
}

// The page that is on the screen at the point; null: none.
AtspiReference pageAt(const ElementView& tabList, const std::vector<PlacedElement>& tabs, CGPoint point) {
  for (const auto& tab : tabs) {
    if (!hasState(tab.states, AtspiState::selected)) continue;
    for (const auto& page : fewPlacedChildren(tabList.other(tab.reference), Coordinates::ofScreen)) {
      if (!page.isAt(point)) continue;
      tabList.reader().noteParent(page.reference, tabList.reference());
      return page.reference;
    }
  }
  return {};
}

struct Step {
  AtspiReference next;  // null: none
  bool isLast = false;
};

Step stepIntoNotebook(const ElementView& tabList, CGPoint point) {
  const auto tabs = fewPlacedChildren(tabList, Coordinates::ofScreen);
  const auto page = pageAt(tabList, tabs, point);
  if (!page.isNull()) return {page};
  const auto* tab = tabAt(tabs, point);
  return {tab ? tab->reference : AtspiReference{}, true};
}

// Popovers are children of the window beside what they cover, and the toolkit finds what they cover.
AtspiReference popoverAt(const ElementView& window, CGPoint point) {
  if (fewChildren(window).size() < 2) return {};
  const auto children = fewPlacedChildren(window, Coordinates::ofScreen);
  const auto found = std::ranges::find_if(children.rbegin(), children.rend(), [point](const auto& child) {
    return child.isAt(point) && hasState(child.states, AtspiState::showing);
  });
  return found != children.rend() ? found->reference : AtspiReference{};
}

// The hit test of a table finds its cells only.
AtspiReference headerAt(const ElementView& table, CGPoint point) {
  const auto count = std::clamp<std::int64_t>(table.needOnly(Ask::columnCount).columnCount, 0, mostColumns);
  std::vector<AtspiCall> calls;
  for (std::int32_t i = 0; i < count; ++i) {
    calls.push_back({table.reference(), "org.a11y.atspi.Table", "GetColumnHeader", {i}});
  }
  std::vector<AtspiQuestion> headers;
  for (const auto& reply : table.reader().exchange(calls)) {
    auto header = readReference(reply.message.get());
    if (header && !header->isNull()) headers.push_back({std::move(*header), Ask::extents});
  }
  table.reader().read(headers);
  const auto found = std::ranges::find_if(
      headers, [&](const auto& header) { return contains(table.reader().known(header.element).extents, point); });
  return found != headers.end() ? found->element : AtspiReference{};
}

Step stepGtk3(const ElementView& view, CGPoint point, bool isTopLevel) {
  auto asks = Asks{Ask::role};
  if (isTopLevel) asks |= Asks{Ask::childCount, Ask::children};
  const auto answer = ask(view, point, 0, asks);
  const auto role = static_cast<AtspiRole>(view.needOnly(Ask::role).role);
  if (role == AtspiRole::pageTabList) return stepIntoNotebook(view, point);
  if (answer.isNull() && isTableLike(role)) return {headerAt(view, point), true};
  if (!isTopLevel) return {answer};
  const auto popover = popoverAt(view, point);
  return {popover.isNull() ? answer : popover};
}

bool mayBePartOfDropDown(const ElementView& view) {
  const auto& name = view.need(Ask::name).name;
  switch (view.role()) {
    case AtspiRole::label:
    case AtspiRole::panel:
    case AtspiRole::filler: return true;
    default: return name == nameOfButtonInDropDown;
  }
}

// A drop-down of GTK 4 is covered by a button that is part of it, and has no name. What is asked here is what the walk
// from the element upwards asks anyway.
AtspiReference withoutDropDownsButton(const ElementView& topLevel, const AtspiReference& found) {
  auto current = found;
  for (int level = 0; level < mostLevelsInDropDown && current != topLevel.reference(); ++level) {
    topLevel.reader().notePath(current);
    const auto view = topLevel.other(current);
    if (view.role() == AtspiRole::comboBox) return current;
    if (!mayBePartOfDropDown(view)) break;
    current = view.need(Ask::parent).parent;
    if (current.isNull()) break;
  }
  return found;
}

// Level by level; pages of notebooks, whose own hit test stops at their tabs, by extents.
AtspiReference hitTestGtk3(const ElementView& topLevel, const PointedAt& at) {
  auto& reader = topLevel.reader();
  auto current = topLevel.reference();
  for (int level = 0; level < mostLevels; ++level) {
    const auto step = stepGtk3(topLevel.other(current), at.point, level == 0);
    if (step.next.isNull() || step.next == current) break;
    // The menu in a window of its own belongs to the combo box or the menu that opened it.
    const bool isParentSure = level > 0 || static_cast<AtspiRole>(reader.known(current).role) != AtspiRole::window;
    if (isParentSure && !reader.known(step.next).asked.has(Ask::parent)) reader.noteParent(step.next, current);
    current = step.next;
    if (step.isLast) break;
  }
  return current;
}

// In coordinates of the window, since it knows no others; a popover has its place in that of the window it belongs to.
AtspiReference hitTestGtk4(const ElementView& topLevel, const PointedAt& at) {
  const auto& window = at.window;
  const bool saysShadow = window.shadow != ShadowExtents{};
  const auto place = saysShadow ? AtspiRectangle{} : topLevel.needOnly({Ask::windowExtents, Ask::role}).windowExtents;
  const auto left = saysShadow ? window.shadow.left : (window.client.width - place.width) / 2;
  const auto top = saysShadow ? window.shadow.top : (window.client.height - place.height) / 2;
  const CGPoint inside{at.point.x - window.client.x - left + place.x, at.point.y - window.client.y - top + place.y};
  // It finds nothing in popovers.
  const auto answer = window.overrideRedirect ? AtspiReference{} : ask(topLevel, inside, 1, Ask::role);
  const auto hit = answer.isNull() ? topLevel : topLevel.other(answer);
  topLevel.reader().notePath(hit.reference());
  hit.need(Ask::childCount);
  return withoutDropDownsButton(topLevel, deepestByPlace(hit, inside, Coordinates::ofWindow));
}

// The deepest element comes at once.
AtspiReference hitTestQt(const ElementView& topLevel, const PointedAt& at) {
  const auto answer = toolkitsAnswer(topLevel, at.point);
  return answer.isNull() ? topLevel.reference() : answer;
}

// A closed select answers with an option that is not on the screen.
AtspiReference withoutHiddenOption(const ElementView& topLevel, AtspiReference answer) {
  topLevel.reader().notePath(answer);
  for (int level = 0; level < 3; ++level) {
    const auto hit = topLevel.other(answer);
    if (hit.role() != AtspiRole::menuItem && hit.role() != AtspiRole::menu && hit.role() != AtspiRole::listItem) break;
    if (hit.hasState(AtspiState::showing)) break;
    const auto parent = hit.need(Ask::parent).parent;
    if (parent.isNull()) break;
    answer = parent;
  }
  return answer;
}

// The first answer may be of the place that was asked for before.
AtspiReference hitTestWeb(const ElementView& topLevel, const PointedAt& at) {
  if (at.pressed.isNull()) toolkitsAnswer(topLevel, at.point);
  const auto answer = toolkitsAnswer(topLevel, at.point);
  return answer.isNull() ? topLevel.reference() : withoutHiddenOption(topLevel, answer);
}

bool isAt(const ElementView& view, CGPoint point) {
  return !view.reference().isNull() && contains(view.needOnly(Ask::extents).extents, point);
}

// While a list is open, Gecko finds nothing in the window below it. The element that opened it was pressed, and has the
// keyboard focus.
AtspiReference hitTestGecko(const ElementView& topLevel, const PointedAt& at) {
  auto found = hitTestWeb(topLevel, at);
  if (found != topLevel.reference()) return found;
  if (!at.pressed.isNull()) return withoutHiddenOption(topLevel, at.pressed);
  const auto focused = at.focused();
  return isAt(topLevel.other(focused), at.point) ? focused : found;
}

}  // namespace

AtspiReference toolkitsAnswer(const ElementView& view, CGPoint point) { return ask(view, point, 0, Ask::role); }

AtspiReference hitTest(const ElementView& topLevel, const PointedAt& at) {
  switch (topLevel.toolkit()) {
    case Toolkit::gtk3: return hitTestGtk3(topLevel, at);
    case Toolkit::gtk4: return hitTestGtk4(topLevel, at);
    case Toolkit::chromium: return hitTestWeb(topLevel, at);
    case Toolkit::gecko: return hitTestGecko(topLevel, at);
    case Toolkit::qt:
    case Toolkit::other: return hitTestQt(topLevel, at);
  }
  return {};
}

}  // namespace norra::linux_desktop
