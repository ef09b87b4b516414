// GTK 3.
#include <algorithm>
#include <array>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxLevels = 40;
// A tab says only where its label is.
constexpr std::int32_t marginOfTab = 16;
constexpr std::int64_t longestLinkName = 512;  // characters
constexpr std::int32_t widthOfButtonInTab = 48;

Asks asksForGtk3Role(AtspiRole role) {
  switch (role) {
    case AtspiRole::toggleButton: return Ask::firstActionName;
    case AtspiRole::pushButton:
    case AtspiRole::table:
    case AtspiRole::layeredPane: return Ask::interfaces;
    case AtspiRole::comboBox: return Ask::childCount;
    default: return {};
  }
}

// Flow boxes are called tables, and icon views panes in layers.
bool isListOfItems(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool mayBe = role == AtspiRole::table || role == AtspiRole::layeredPane;
  return mayBe && facts.has(AtspiInterface::selection) && !facts.has(AtspiInterface::table);
}

// It has no roles for its switches and its link buttons, and says of the field beside the list, not of the box, that it
// can be edited.
RoleAndSubrole ownRole(const AtspiFacts& facts, const RoleSurroundings& /*surroundings*/) {
  const auto role = static_cast<AtspiRole>(facts.role);
  if (role == AtspiRole::pushButton && facts.has(AtspiInterface::hyperlink)) return {"AXLink", ""};
  if (role == AtspiRole::toggleButton && facts.firstActionName == "toggle") return {"AXCheckBox", "AXSwitch"};
  if (role == AtspiRole::comboBox && facts.childCount > 1) return {"AXComboBox", ""};
  if (role == AtspiRole::icon) return {"AXGroup", ""};
  if (isListOfItems(facts)) return {"AXList", ""};
  return {};
}

bool isExpander(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool mayBe = role == AtspiRole::toggleButton || role == AtspiRole::pushButton;
  return mayBe && hasState(facts.states, AtspiState::expandable);
}

AtspiRectangle inflated(AtspiRectangle place, std::int32_t margin) {
  return {place.x - margin, place.y - margin / 2, place.width + 2 * margin, place.height + margin};
}

// A tab says where its label is; what else lies in it, as a button that closes it, is right of that.
const PlacedElement* tabBefore(const std::vector<PlacedElement>& tabs, CGPoint point) {
  const PlacedElement* before = nullptr;
  bool isLast = true;
  for (const auto& tab : tabs) {
    const auto place = inflated(tab.place.value_or(AtspiRectangle{}), marginOfTab);
    if (!tab.place || point.y < place.y || point.y >= place.y + place.height) continue;
    if (place.x > point.x) isLast = false;
    if (place.x <= point.x && (!before || tab.place->x > before->place->x)) before = &tab;
  }
  const bool isNear = before && point.x < before->place->x + before->place->width + widthOfButtonInTab;
  return isNear || (before && !isLast) ? before : nullptr;
}

const PlacedElement* tabWithin(const std::vector<PlacedElement>& tabs, CGPoint point, std::int32_t margin) {
  const auto found = std::ranges::find_if(
      tabs, [&](const auto& tab) { return tab.place && contains(inflated(*tab.place, margin), point); });
  return found != tabs.end() ? &*found : nullptr;
}

const PlacedElement* tabAround(const std::vector<PlacedElement>& tabs, CGPoint point) {
  const auto* found = tabWithin(tabs, point, marginOfTab);
  return found ? found : tabBefore(tabs, point);
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
  // A page that has just been turned to may still say that it lies where it has been.
  if (const auto* tab = tabWithin(tabs, point, 0)) return {tab->reference, true};
  const auto page = pageAt(tabList, tabs, point);
  if (!page.isNull()) return {page};
  const auto* tab = tabAround(tabs, point);
  return {tab ? tab->reference : AtspiReference{}, true};
}

// Popovers are children of the window beside what they cover, and the toolkit finds what they cover.
AtspiReference popoverAt(const ElementView& window, CGPoint point) {
  if (window.needOnly(Ask::childCount).childCount < 2) return {};
  const auto children = fewPlacedChildren(window, Coordinates::ofScreen);
  const auto found = std::ranges::find_if(children.rbegin(), children.rend(), [point](const auto& child) {
    return child.isAt(point) && hasState(child.states, AtspiState::showing);
  });
  return found != children.rend() ? found->reference : AtspiReference{};
}

// What a link is called stands in the text that it is a part of.
std::string nameOfLink(const ElementView& view) {
  auto& reader = view.reader();
  const std::array<AtspiCall, 2> range{propertyCall(view.reference(), atspi::hyperlink, "StartIndex"),
                                       propertyCall(view.reference(), atspi::hyperlink, "EndIndex")};
  const auto ends = reader.exchange(range);
  const auto first = readInteger(ends[0].message.get());
  const auto end = readInteger(ends[1].message.get());
  if (!first || !end || *first < 0 || *end <= *first || *end - *first > longestLinkName) return {};
  const auto text = reader.call({view.need(Ask::parent).parent,
                                 atspi::text,
                                 "GetText",
                                 {static_cast<std::int32_t>(*first), static_cast<std::int32_t>(*end)}});
  return readText(text.message.get()).value_or("");
}

// The tooltip of a button in a tool bar belongs to the item of the bar that holds nothing but the button.
std::string nameOfToolButton(const ElementView& view) {
  const bool mayBe = view.role() == AtspiRole::pushButton || view.role() == AtspiRole::toggleButton;
  if (!mayBe || !view.need(Ask::description).description.empty()) return {};
  const auto item = view.parent();
  if (item.role() != AtspiRole::panel || item.parent().role() != AtspiRole::toolBar) return {};
  const auto& facts = item.need({Ask::description, Ask::childCount});
  return facts.childCount == 1 ? facts.description : std::string();
}

std::string nameOfNameless(const ElementView& view) {
  return view.role() == AtspiRole::link ? nameOfLink(view) : nameOfToolButton(view);
}

// Links in a text have no places; the text knows which of its characters lies there.
AtspiReference linkAt(const ElementView& label, CGPoint point) {
  if (label.needOnly(Ask::childCount).childCount <= 0) return {};
  auto& reader = label.reader();
  const auto x = static_cast<std::int32_t>(point.x);
  const auto y = static_cast<std::int32_t>(point.y);
  const auto character = reader.call({label.reference(), atspi::text, "GetOffsetAtPoint", {x, y, std::uint32_t{0}}});
  const auto offset = readInteger(character.message.get());
  if (!offset || *offset < 0) return {};
  const auto found =
      reader.call({label.reference(), atspi::hypertext, "GetLinkIndex", {static_cast<std::int32_t>(*offset)}});
  const auto index = readInteger(found.message.get());
  return index && *index >= 0 ? childAt(label, static_cast<std::size_t>(*index)) : AtspiReference{};
}

Step stepGtk3(const ElementView& view, CGPoint point, bool isTopLevel) {
  auto asks = Asks{Ask::role};
  if (isTopLevel) asks |= Ask::childCount;
  const auto answer = askedElementAt(view, point, Coordinates::ofScreen, asks);
  const auto role = static_cast<AtspiRole>(view.needOnly(Ask::role).role);
  if (role == AtspiRole::pageTabList) return stepIntoNotebook(view, point);
  if (answer.isNull() && is(role, RoleKind::tableLike)) return {headerAt(view, point), true};
  if (role == AtspiRole::label) return {linkAt(view, point), true};
  if (!isTopLevel) return {answer};
  const auto popover = popoverAt(view, point);
  return {popover.isNull() ? answer : popover};
}

// LibreOffice draws what lies in its root panes itself, and complains when it is asked for a child that is not there.
bool mayAskForChild(const ElementView& view, bool isDrawn) {
  return !isDrawn || view.needOnly(Ask::childCount).childCount > 0;
}

// Level by level; pages of notebooks, whose own hit test stops at their tabs, by extents.
AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  auto& reader = topLevel.reader();
  auto current = topLevel.reference();
  bool isDrawn = false;
  for (int level = 0; level < maxLevels && mayAskForChild(topLevel.other(current), isDrawn); ++level) {
    const auto step = stepGtk3(topLevel.other(current), at.point, level == 0);
    if (step.next.isNull() || step.next == current) break;
    // The menu in a window of its own belongs to the combo box or the menu that opened it.
    const bool isParentSure = level > 0 || static_cast<AtspiRole>(reader.known(current).role) != AtspiRole::window;
    if (isParentSure && !reader.known(step.next).asked.has(Ask::parent)) reader.noteParent(step.next, current);
    isDrawn = isDrawn || static_cast<AtspiRole>(reader.known(current).role) == AtspiRole::rootPane;
    current = step.next;
    if (step.isLast) break;
  }
  return current;
}

}  // namespace

const Toolkit gtk3{
    .hasOneNameForEachRole = true,
    .isLabelledByOwnParts = false,
    .putsPagesBelowTabs = true,
    .countsFromShadow = true,
    .asksForRole = asksForGtk3Role,
    .ownRole = ownRole,
    .isAroundContent = isExpander,
    .nameOfNameless = nameOfNameless,
    .elementAt = elementAt,
};

}  // namespace norra::linux_desktop
