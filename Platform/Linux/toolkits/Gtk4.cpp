// GTK 4.
#include <algorithm>
#include <array>
#include <string_view>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

// What buttons that have no name are called, until 4.8.
constexpr std::string_view nameOfButtonInDropDown = "GtkToggleButton";
constexpr int maxLevelsInDropDown = 8;
constexpr int maxLevelsInButton = 2;
constexpr int maxFrames = 8;
constexpr int maxLevelsInPopover = 24;

// What a drop-down shows of what is chosen, until 4.8; later it has no name.
constexpr std::string_view nameOfChosen = "GtkListItemWidget";
constexpr std::size_t maxPartsOfDropDown = 4;

struct ClassRole {
  std::string_view name;
  AtspiRole role;
};
// What the class alone tells of, where it is all that stands for a name, and its role says nothing.
constexpr std::array rolesOfClasses{ClassRole{"AdwTab", AtspiRole::pageTab},
                                    ClassRole{"GtkColumnViewTitle", AtspiRole::columnHeader},
                                    ClassRole{"GtkEditableLabel", AtspiRole::text}};

AtspiRole trueRole(const AtspiFacts& facts) {
  const auto* found = std::ranges::find(rolesOfClasses, std::string_view(facts.name), &ClassRole::name);
  return found != rolesOfClasses.end() ? found->role : AtspiRole::filler;
}

// It has no other entries than search fields. Its grids are boxes of items, which do not lie in rows.
RoleAndSubrole ownRole(const AtspiFacts& facts, const RoleSurroundings& /*surroundings*/) {
  const auto role = static_cast<AtspiRole>(facts.role);
  if (role == AtspiRole::table) return {"AXList", ""};
  const bool isSearchField = role == AtspiRole::entry && !hasState(facts.states, AtspiState::multiLine);
  return isSearchField ? RoleAndSubrole{"AXTextField", "AXSearchField"} : RoleAndSubrole{};
}

bool isChosen(const ElementView& part) {
  return part.need(Ask::name).name == nameOfChosen || part.hasState(AtspiState::selectable);
}

std::string shownText(const ElementView& view, bool isInChosen, int levels) {
  for (const auto& child : firstChildren(view, maxPartsOfDropDown)) {
    const auto part = view.other(child);
    if (isInChosen && part.role() == AtspiRole::label) return part.need(Ask::name).name;
    if (levels == 0) continue;
    auto text = shownText(part, isInChosen || isChosen(part), levels - 1);
    if (!text.empty()) return text;
  }
  return {};
}

std::string chosenIn(const ElementView& dropDown) { return shownText(dropDown, false, maxLevelsInDropDown); }

// A button is called by all that is written below it, which is, later than 4.8, also what the popover says that it has
// opened.
std::string nameWithoutOpened(const ElementView& button, std::string name) {
  const bool mayOpen = button.role() == AtspiRole::toggleButton && button.hasState(AtspiState::hasPopup);
  if (!mayOpen || name.find(' ') == std::string::npos) return name;
  auto text = shownText(button, true, maxLevelsInButton);
  return !text.empty() && name.starts_with(text + ' ') ? text : name;
}

// Of a label that is not read for itself only its text is known.
std::string textOfLabel(const ElementView& label) {
  const auto& name = label.need(Ask::name).name;
  if (!name.empty()) return name;
  if (is(label.role(), RoleKind::field) || label.hasState(AtspiState::editable)) return {};
  const auto text = textValue(label);
  const auto* shown = std::get_if<std::string>(&text.value);
  return shown ? *shown : std::string();
}

// Later than 4.8 the items of its menus are called by their labels only.
std::string nameOfNameless(const ElementView& view) {
  if (view.role() != AtspiRole::menuItem) return {};
  const auto label = firstTarget(view.need(Ask::relations).relations, AtspiRelationType::labelledBy);
  return label.isNull() ? std::string() : textOfLabel(view.other(label));
}

bool isAscii(char c, char first, char last) { return c >= first && c <= last; }

bool isCapital(char c) { return isAscii(c, 'A', 'Z'); }

bool isInOneWord(std::string_view name) {
  return std::ranges::all_of(name, [](char c) { return isCapital(c) || isAscii(c, 'a', 'z') || isAscii(c, '0', '9'); });
}

// GtkButton, AdwActionRow; and what applications make of them: EditorSearchEntry, NautilusNameCell.
bool isClassName(std::string_view name) {
  using namespace std::string_view_literals;
  static constexpr std::array widgets{"Area"sv,    "Bar"sv,    "Box"sv,     "Button"sv, "Cell"sv,    "Chooser"sv,
                                      "Day"sv,     "Dialog"sv, "Display"sv, "Editor"sv, "Entry"sv,   "Face"sv,
                                      "Grid"sv,    "Header"sv, "Icon"sv,    "Image"sv,  "Item"sv,    "Label"sv,
                                      "List"sv,    "Page"sv,   "Panel"sv,   "Picker"sv, "Popover"sv, "Row"sv,
                                      "Sidebar"sv, "Stack"sv,  "Tile"sv,    "View"sv,   "Widget"sv,  "Window"sv};
  if (name.size() <= 3 || !isCapital(name.front()) || !isInOneWord(name)) return false;
  if (name.starts_with("Gtk") || name.starts_with("Adw")) return isCapital(name[3]);
  const bool endsInWidget = std::ranges::any_of(widgets, [name](auto widget) { return name.ends_with(widget); });
  return endsInWidget && std::ranges::count_if(name, isCapital) > 2;
}

// ClocksWindow: no title is in such a word alone.
bool isClassOfWindow(std::string_view name, AtspiRole role) {
  const bool isWindow = role == AtspiRole::window || role == AtspiRole::frame;
  return isWindow && isInOneWord(name) && name.ends_with("Window") && std::ranges::count_if(name, isCapital) > 1;
}

// What stands there instead of a name.
std::string_view properName(std::string_view name, AtspiRole role) {
  const bool isDefault = isClassName(name) || isClassOfWindow(name, role) ||
                         (role == AtspiRole::pageTab && name == "Tab") ||
                         (role == AtspiRole::pageTabList && name == "Tab list");
  return isDefault ? std::string_view() : name;
}

// Popovers, open or not, say that they lie over the widget that opens them. Applications make their own kinds.
bool isNamedAsPopover(const AtspiFacts& facts) {
  const std::string_view name = facts.name;
  return isInOneWord(name) && (name.ends_with("Popover") || name.ends_with("PopoverMenu") || name == "GtkEmojiChooser");
}

// Without class names a popover is known by what windows, and dialogs that lie in their window, can do too.
bool isPopover(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool mayBe = role != AtspiRole::frame && role != AtspiRole::window && role != AtspiRole::dialog;
  return (mayBe && facts.firstActionName == "default.activate") || isNamedAsPopover(facts);
}

bool mayBePartOfDropDown(const ElementView& view) {
  switch (view.role()) {
    case AtspiRole::label:
    case AtspiRole::panel:
    case AtspiRole::toggleButton:
    case AtspiRole::filler: return true;
    default: return view.need(Ask::name).name == nameOfButtonInDropDown;
  }
}

// A drop-down is covered by a button that is part of it, and has no name. What is asked here is what the walk
// from the element upwards asks anyway.
AtspiReference withoutDropDownsButton(const ElementView& topLevel, const AtspiReference& found) {
  auto current = found;
  for (int level = 0; level < maxLevelsInDropDown && current != topLevel.reference(); ++level) {
    topLevel.reader().notePath(current);
    const auto view = topLevel.other(current);
    if (view.role() == AtspiRole::comboBox) return current;
    if (!mayBePartOfDropDown(view)) break;
    current = view.need(Ask::parent).parent;
    if (current.isNull()) break;
  }
  return found;
}

struct Offset {
  double x = 0;
  double y = 0;
};

// Later than 4.8 what lies in a frame says that it begins where the frame does.
Offset frameAround(const AtspiRectangle& outer, const AtspiRectangle& inner) {
  if (outer.x != inner.x || outer.y != inner.y) return {};
  return {std::max(0, outer.width - inner.width) / 2.0, std::max(0, outer.height - inner.height) / 2.0};
}

Offset framesIn(const ElementView& popover) {
  Offset frames;
  auto outer = popover.needOnly(Ask::windowExtents).windowExtents;
  auto current = popover.reference();
  for (int level = 0; level < maxFrames; ++level) {
    const auto children = fewPlacedChildren(popover.other(current), Coordinates::ofWindow);
    if (children.size() != 1 || !children.front().place) break;
    const auto [x, y] = frameAround(outer, *children.front().place);
    frames = {frames.x + x, frames.y + y};
    outer = *children.front().place;
    current = children.front().reference;
  }
  return frames;
}

// What is left beside the content of a window is its shadow; only above it, what keeps a popover off its button.
Offset shadowAround(const AtspiRectangle& place, const WindowOnScreen& window) {
  if (window.shadow != ShadowExtents{}) return {window.shadow.left, window.shadow.top};
  const Offset beside{window.client.width - place.width, window.client.height - place.height};
  const bool isAbove = window.overrideRedirect && beside.x == 0;
  return {beside.x / 2, isAbove ? beside.y : beside.y / 2};
}

CGPoint inContent(const ElementView& topLevel, const PointedAt& at) {
  const auto& window = at.window;
  const bool saysShadow = window.shadow != ShadowExtents{};
  const auto place = saysShadow ? AtspiRectangle{} : topLevel.needOnly({Ask::windowExtents, Ask::role}).windowExtents;
  const auto [left, top] = shadowAround(place, window);
  return {at.point.x - window.client.x - left + place.x, at.point.y - window.client.y - top + place.y};
}

// It finds nothing in popovers.
AtspiReference askedInContent(const ElementView& topLevel, CGPoint inside, bool isInPopover) {
  return isInPopover ? AtspiReference{} : askedElementAt(topLevel, inside, Coordinates::ofWindow);
}

// In coordinates of the window, since it knows no others; a popover has its place in that of the window it belongs to.
AtspiReference goOnFrom(const AtspiReference& answer, const ElementView& topLevel, CGPoint inside, bool isInPopover) {
  const auto hit = answer.isNull() ? topLevel : topLevel.other(answer);
  topLevel.reader().notePath(hit.reference());
  hit.need(Ask::childCount);
  if (isInPopover) {
    const auto [x, y] = framesIn(topLevel);
    inside = {inside.x - x, inside.y - y};
  }
  return withoutDropDownsButton(topLevel, deepestByPlace(hit, inside, Coordinates::ofWindow));
}

AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  const bool isInPopover = at.window.overrideRedirect;
  const auto inside = inContent(topLevel, at);
  return goOnFrom(askedInContent(topLevel, inside, isInPopover), topLevel, inside, isInPopover);
}

bool liesInPopover(const ElementView& topLevel, const AtspiReference& element) {
  const auto popover = searchUp(topLevel.other(element), maxLevelsInPopover, [&](const ElementView& view) {
    if (view.reference() == topLevel.reference()) return Search::ends;
    return foundIf(isPopover(view.need({Ask::role, Ask::name, Ask::firstActionName, Ask::parent})));
  });
  return !popover.isNull();
}

// Later than 4.8 it also finds what lies in popovers that were closed, over whatever has their place now.
AtspiReference elementBesidePopovers(const ElementView& topLevel, const PointedAt& at) {
  const bool isInPopover = at.window.overrideRedirect;
  const auto inside = inContent(topLevel, at);
  auto answer = askedInContent(topLevel, inside, isInPopover);
  if (!answer.isNull() && liesInPopover(topLevel, answer)) answer = {};
  return goOnFrom(answer, topLevel, inside, isInPopover);
}

constexpr Toolkit withClassNames{
    .givesHiddenTextAway = true,
    .tellsWhatIsShowing = false,
    .tellsNumbers = false,
    .joinsNameAndLabel = true,
    .keepsExpandersInBoxes = true,
    .tellsFocusOfAllFields = false,
    .saysPlacesOnScreen = false,
    .saysWhatIsShown = false,
    .countsFromShadow = true,
    .popoversAreWindows = true,
    .marginOfControls = 14,
    .hidesFieldsInComboBoxes = true,
    .trueRole = trueRole,
    .knownBy = Ask::name,
    .ownRole = ownRole,
    .properName = properName,
    .chosenIn = chosenIn,
    .liesInOwnWindow = isNamedAsPopover,
    .liesInOwnWindowBy = Ask::name,
    .elementAt = elementAt,
};

}  // namespace

const Toolkit gtk4WithClassNames = withClassNames;

const Toolkit gtk4 = [] {
  auto later = withClassNames;
  later.nameWithoutOpened = nameWithoutOpened;
  later.nameOfNameless = nameOfNameless;
  later.elementAt = elementBesidePopovers;
  later.liesInOwnWindow = isPopover;
  later.liesInOwnWindowBy |= Ask::firstActionName;
  return later;
}();

}  // namespace norra::linux_desktop
