// GTK 4.
#include <algorithm>
#include <array>
#include <string_view>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

// What buttons that have no name are called.
constexpr std::string_view nameOfButtonInDropDown = "GtkToggleButton";
constexpr int maxLevelsInDropDown = 8;

// What a drop-down shows of what is chosen.
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

std::string shownText(const ElementView& view, bool isInChosen, int levels) {
  for (const auto& child : firstChildren(view, maxPartsOfDropDown)) {
    const auto part = view.other(child);
    const auto& name = part.need(Ask::name).name;
    if (isInChosen && part.role() == AtspiRole::label) return name;
    if (levels == 0) continue;
    auto text = shownText(part, isInChosen || name == nameOfChosen, levels - 1);
    if (!text.empty()) return text;
  }
  return {};
}

std::string chosenIn(const ElementView& dropDown) { return shownText(dropDown, false, maxLevelsInDropDown); }

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
bool isPopover(const AtspiFacts& facts) {
  const std::string_view name = facts.name;
  return isInOneWord(name) && (name.ends_with("Popover") || name.ends_with("PopoverMenu") || name == "GtkEmojiChooser");
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

// In coordinates of the window, since it knows no others; a popover has its place in that of the window it belongs to.
AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  const auto& window = at.window;
  const bool saysShadow = window.shadow != ShadowExtents{};
  const auto place = saysShadow ? AtspiRectangle{} : topLevel.needOnly({Ask::windowExtents, Ask::role}).windowExtents;
  const auto left = saysShadow ? window.shadow.left : (window.client.width - place.width) / 2;
  const auto top = saysShadow ? window.shadow.top : (window.client.height - place.height) / 2;
  const CGPoint inside{at.point.x - window.client.x - left + place.x, at.point.y - window.client.y - top + place.y};
  // It finds nothing in popovers.
  const auto answer =
      window.overrideRedirect ? AtspiReference{} : askedElementAt(topLevel, inside, Coordinates::ofWindow);
  const auto hit = answer.isNull() ? topLevel : topLevel.other(answer);
  topLevel.reader().notePath(hit.reference());
  hit.need(Ask::childCount);
  return withoutDropDownsButton(topLevel, deepestByPlace(hit, inside, Coordinates::ofWindow));
}

}  // namespace

const Toolkit gtk4{
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
    .liesInOwnWindow = isPopover,
    .elementAt = elementAt,
};

}  // namespace norra::linux_desktop
