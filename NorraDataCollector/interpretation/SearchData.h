// What a walk from a clicked element towards its window meets.
//
// The walk is the only part of a click that climbs, and it is bounded: six elements, and no further than the first
// container (a table, a list, a window, a page), beyond which lies what the click has nothing to do with. It remembers
// the first element of each kind and decides nothing between kinds; that is for ClickClassification.h, which has the
// whole record before it.
//
// Two kinds may stand for the control. A real one (a button, a menu item) takes the place at once. A text takes it only
// where a click can do something with it, and gives it up to a real control further up: the caption of a button is a
// text, and what is reported is the button.
//
// Beside the kinds, the walk finds out whether the click was on anything interactive at all, by a role, by an action
// such as a press, or by a selection. Where nothing on the way says so, nothing is reported.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/model/URL.h"
#include "Platform/Accessibility.h"

namespace norra {

/// The first element of each kind on the walk. Lives for one click.
struct SearchData {
  /// The roles on the walk, such as "AXStaticText in AXButton in AXWindow".
  std::string roles;
  std::optional<URL> url;
  std::optional<AXUIElement> cell;
  std::optional<CFRange> cellColumnIndexRange;
  std::optional<std::vector<AXUIElement>> columns;
  std::optional<AXUIElement> row;
  std::optional<std::string> groupName;
  std::optional<std::string> popupButtonTitleElementName;
  std::optional<AXUIElement> linkElement;
  std::optional<std::string> linkName;
  std::optional<AXUIElement> listItemElement;
  /// The control that the click is attributed to, and what was read of it.
  std::optional<AXUIElement> interactiveElement;
  std::optional<std::string> interactiveName;
  std::optional<std::string> interactiveTitleElementName;
  /// A number or a text.
  std::optional<AXAttributeValue> interactiveValue;
  std::string interactiveRole{role::unknown};
  std::string interactiveSubrole{subrole::unknown};
  /// The interactive element is only a text; a control further up takes its place.
  bool isInteractiveElementText = false;
  bool isInInteractiveHierarchy = false;
};

/// Walks from the clicked element up to five ancestors, or to the first container that ends a walk. Any thread.
SearchData collectSearchData(const AXUIElement& clicked);

/// Whether an element at this distance from the clicked one (0) makes the click one on something interactive.
bool checkInteractiveHierarchy(std::string_view role, const AXUIElement& element, int depth);

/// The name of a menu item behind those of the menus that lead to it, such as "File -> Open Recent -> Clear Menu";
/// nothing where the item has no name.
std::optional<std::string> menuItemPath(const AXUIElement& menuItem);

}  // namespace norra
