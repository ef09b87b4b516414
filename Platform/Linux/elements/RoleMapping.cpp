#include "Platform/Linux/elements/RoleMapping.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace norra::linux_desktop {
namespace {

struct Row {
  AtspiRole from;
  RoleAndSubrole to;
};

// What does not depend on anything but the role. The rest of the roles is in the rules below; what is in neither is a
// group.
constexpr std::array rows{
    Row{AtspiRole::application, {"AXApplication", ""}},
    Row{AtspiRole::autocomplete, {"AXComboBox", ""}},
    Row{AtspiRole::checkBox, {"AXCheckBox", ""}},
    Row{AtspiRole::dateEditor, {"AXTextField", ""}},
    Row{AtspiRole::dial, {"AXSlider", ""}},
    Row{AtspiRole::documentFrame, {"AXWebArea", ""}},
    Row{AtspiRole::documentWeb, {"AXWebArea", ""}},
    Row{AtspiRole::editBar, {"AXTextField", ""}},
    Row{AtspiRole::fileChooser, {"AXWindow", "AXDialog"}},
    Row{AtspiRole::fontChooser, {"AXWindow", "AXDialog"}},
    Row{AtspiRole::frame, {"AXWindow", "AXStandardWindow"}},
    Row{AtspiRole::heading, {"AXHeading", ""}},
    Row{AtspiRole::icon, {"AXImage", ""}},
    Row{AtspiRole::image, {"AXImage", ""}},
    Row{AtspiRole::imageMap, {"AXImage", ""}},
    Row{AtspiRole::label, {"AXStaticText", ""}},
    Row{AtspiRole::levelBar, {"AXLevelIndicator", ""}},
    Row{AtspiRole::link, {"AXLink", ""}},
    Row{AtspiRole::list, {"AXList", ""}},
    Row{AtspiRole::listBox, {"AXList", ""}},
    Row{AtspiRole::menuBar, {"AXMenuBar", ""}},
    Row{AtspiRole::pageTab, {"AXRadioButton", "AXTabButton"}},
    Row{AtspiRole::pageTabList, {"AXTabGroup", ""}},
    Row{AtspiRole::passwordText, {"AXTextField", "AXSecureTextField"}},
    Row{AtspiRole::popupMenu, {"AXMenu", ""}},
    Row{AtspiRole::progressBar, {"AXProgressIndicator", ""}},
    Row{AtspiRole::pushButtonMenu, {"AXMenuButton", ""}},
    Row{AtspiRole::radioButton, {"AXRadioButton", ""}},
    Row{AtspiRole::rowHeader, {"AXCell", ""}},
    Row{AtspiRole::scrollBar, {"AXScrollBar", ""}},
    Row{AtspiRole::scrollPane, {"AXScrollArea", ""}},
    Row{AtspiRole::slider, {"AXSlider", ""}},
    Row{AtspiRole::spinButton, {"AXIncrementor", ""}},
    Row{AtspiRole::splitPane, {"AXSplitGroup", ""}},
    Row{AtspiRole::staticText, {"AXStaticText", ""}},
    Row{AtspiRole::switchControl, {"AXCheckBox", "AXSwitch"}},
    Row{AtspiRole::table, {"AXTable", ""}},
    Row{AtspiRole::tableCell, {"AXCell", ""}},
    Row{AtspiRole::tableRow, {"AXRow", "AXTableRow"}},
    Row{AtspiRole::tableRowHeader, {"AXCell", ""}},
    Row{AtspiRole::terminal, {"AXTextArea", ""}},
    Row{AtspiRole::toolBar, {"AXToolbar", ""}},
    Row{AtspiRole::tree, {"AXOutline", ""}},
    Row{AtspiRole::treeItem, {"AXRow", "AXOutlineRow"}},
    Row{AtspiRole::treeTable, {"AXOutline", ""}},
    Row{AtspiRole::window, {"AXWindow", ""}},
};

constexpr std::array fields{AtspiRole::text,    AtspiRole::entry,        AtspiRole::passwordText, AtspiRole::terminal,
                            AtspiRole::editBar, AtspiRole::autocomplete, AtspiRole::dateEditor};
constexpr std::array checkables{AtspiRole::checkBox,    AtspiRole::checkMenuItem, AtspiRole::pageTab,
                                AtspiRole::radioButton, AtspiRole::radioMenuItem, AtspiRole::switchControl,
                                AtspiRole::toggleButton};
constexpr std::array mereContainers{AtspiRole::filler,     AtspiRole::frame,       AtspiRole::layeredPane,
                                    AtspiRole::menuBar,    AtspiRole::pageTabList, AtspiRole::panel,
                                    AtspiRole::scrollPane, AtspiRole::splitPane,   AtspiRole::toolBar,
                                    AtspiRole::viewport,   AtspiRole::window};
constexpr std::array tables{AtspiRole::table, AtspiRole::tree, AtspiRole::treeTable};
constexpr std::array itemContainers{AtspiRole::list, AtspiRole::listBox,   AtspiRole::table,
                                    AtspiRole::tree, AtspiRole::treeTable, AtspiRole::layeredPane};
constexpr std::array menuParts{AtspiRole::checkMenuItem, AtspiRole::menu, AtspiRole::menuItem, AtspiRole::radioMenuItem,
                               AtspiRole::tearoffMenuItem};
constexpr std::array rolesThatNeedAttributes{AtspiRole::entry, AtspiRole::filler, AtspiRole::grouping,
                                             AtspiRole::panel, AtspiRole::text,   AtspiRole::toggleButton};
constexpr std::array rolesThatNeedStates{AtspiRole::comboBox,    AtspiRole::entry,     AtspiRole::paragraph,
                                         AtspiRole::pushButton,  AtspiRole::separator, AtspiRole::text,
                                         AtspiRole::toggleButton};

using namespace std::string_view_literals;
constexpr std::array searchEnds{"AXApplication"sv, "AXBrowser"sv,    "AXGrid"sv,     "AXList"sv,
                                "AXMenuBar"sv,     "AXOutline"sv,    "AXPopover"sv,  "AXRadioGroup"sv,
                                "AXScrollBar"sv,   "AXSplitGroup"sv, "AXSplitter"sv, "AXTabGroup"sv,
                                "AXTable"sv,       "AXToolbar"sv,    "AXWebArea"sv,  "AXWindow"sv};

template <typename Table, typename Item>
bool contains(const Table& table, const Item& item) {
  return std::ranges::find(table, item) != table.end();
}

bool hasXmlRole(const AtspiFacts& facts, std::string_view role) {
  const auto roles = facts.attributes.find("xml-roles");
  if (roles == facts.attributes.end()) return false;
  return (" " + roles->second + " ").find(" " + std::string(role) + " ") != std::string::npos;
}

bool isMenuOpener(const AtspiFacts& facts) { return hasState(facts.states, AtspiState::hasPopup); }

// GTK 3 has no role for its link buttons.
RoleAndSubrole button(const AtspiFacts& facts, Toolkit toolkit) {
  if (toolkit == Toolkit::gtk3 && facts.has(AtspiInterface::hyperlink)) return {"AXLink", ""};
  return {isMenuOpener(facts) ? "AXMenuButton" : "AXButton", ""};
}

bool showsWebPages(Toolkit toolkit) { return toolkit == Toolkit::chromium || toolkit == Toolkit::gecko; }

RoleAndSubrole columnHeader(Toolkit toolkit) {
  return showsWebPages(toolkit) ? RoleAndSubrole{"AXCell", ""} : RoleAndSubrole{"AXButton", "AXSortButton"};
}

// In a web page it is a part of the page.
RoleAndSubrole dialog(Toolkit toolkit) {
  return showsWebPages(toolkit) ? RoleAndSubrole{"AXGroup", ""} : RoleAndSubrole{"AXWindow", "AXDialog"};
}

RoleAndSubrole toggleButton(const AtspiFacts& facts) {
  if (isMenuOpener(facts)) return {"AXMenuButton", ""};
  return {"AXCheckBox", hasXmlRole(facts, "switch") ? "AXSwitch" : "AXToggle"};
}

// GTK 3 says of the field beside the list, not of the box, that it can be edited.
RoleAndSubrole comboBox(const AtspiFacts& facts, Toolkit toolkit) {
  const bool hasField = toolkit == Toolkit::gtk3 && facts.childCount > 1;
  return {hasField || hasState(facts.states, AtspiState::editable) ? "AXComboBox" : "AXPopUpButton", ""};
}

RoleAndSubrole textField(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  if (surroundings.hidesText) return {"AXTextField", "AXSecureTextField"};
  if (hasState(facts.states, AtspiState::multiLine)) return {"AXTextArea", ""};
  const bool isSearch = hasXmlRole(facts, "searchbox") || (facts.attributes.contains("text-input-type") &&
                                                           facts.attributes.at("text-input-type") == "search");
  return {"AXTextField", isSearch ? "AXSearchField" : ""};
}

// GTK 4 has no other elements with the role entry than search fields.
RoleAndSubrole entry(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  auto mapped = textField(facts, surroundings);
  if (surroundings.toolkit == Toolkit::gtk4 && mapped.subrole.empty()) mapped.subrole = "AXSearchField";
  return mapped;
}

RoleAndSubrole menuPart(AtspiRole role, const RoleSurroundings& surroundings) {
  const bool isInWebPage = surroundings.toolkit == Toolkit::chromium;
  const auto parent = surroundings.parentRole;
  if (parent == AtspiRole::menuBar && !isInWebPage) return {"AXMenuBarItem", ""};
  const bool isBelowMenu = parent == AtspiRole::menu || parent == AtspiRole::popupMenu || parent == AtspiRole::menuItem;
  if (role == AtspiRole::menu && !isBelowMenu) return {"AXMenu", ""};
  return {"AXMenuItem", ""};
}

// A filler only keeps the buttons in line; the group is around it.
RoleAndSubrole panel(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const bool holdsRadioButtons =
      surroundings.holdsRadioButtons && static_cast<AtspiRole>(facts.role) != AtspiRole::filler;
  return {holdsRadioButtons || hasXmlRole(facts, "radiogroup") ? "AXRadioGroup" : "AXGroup", ""};
}

RoleAndSubrole separator(const AtspiFacts& facts) {
  return {hasState(facts.states, AtspiState::focusable) ? "AXSplitter" : "AXGroup", ""};
}

RoleAndSubrole unlisted(AtspiRole role) {
  const auto* row = std::ranges::find(rows, role, &Row::from);
  return row != rows.end() ? row->to : RoleAndSubrole{"AXGroup", ""};
}

}  // namespace

bool roleDependsOnParent(AtspiRole role) { return contains(menuParts, role); }

Asks asksForRole(AtspiRole role, Toolkit toolkit) {
  Asks asks;
  if (contains(rolesThatNeedStates, role)) asks |= Ask::states;
  if (role == AtspiRole::pushButton && toolkit == Toolkit::gtk3) asks |= Ask::interfaces;
  if (role == AtspiRole::comboBox && toolkit == Toolkit::gtk3) asks |= Ask::childCount;
  if (showsWebPages(toolkit) && contains(rolesThatNeedAttributes, role)) asks |= Ask::attributes;
  return asks;
}

RoleAndSubrole mapRole(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const auto role = static_cast<AtspiRole>(facts.role);
  switch (role) {
    case AtspiRole::pushButton: return button(facts, surroundings.toolkit);
    case AtspiRole::columnHeader:
    case AtspiRole::tableColumnHeader: return columnHeader(surroundings.toolkit);
    case AtspiRole::alert:
    case AtspiRole::dialog: return dialog(surroundings.toolkit);
    case AtspiRole::toggleButton: return toggleButton(facts);
    case AtspiRole::comboBox: return comboBox(facts, surroundings.toolkit);
    case AtspiRole::text: return textField(facts, surroundings);
    case AtspiRole::entry: return entry(facts, surroundings);
    case AtspiRole::panel:
    case AtspiRole::grouping:
    case AtspiRole::filler: return panel(facts, surroundings);
    case AtspiRole::separator: return separator(facts);
    case AtspiRole::checkMenuItem:
    case AtspiRole::menu:
    case AtspiRole::menuItem:
    case AtspiRole::radioMenuItem:
    case AtspiRole::tearoffMenuItem: return menuPart(role, surroundings);
    default: return unlisted(role);
  }
}

bool isTextField(AtspiRole role) { return contains(fields, role); }
bool isCheckable(AtspiRole role) { return contains(checkables, role); }
bool isMereContainer(AtspiRole role) { return contains(mereContainers, role); }
bool isTableLike(AtspiRole role) { return contains(tables, role); }
bool isItemContainer(AtspiRole role) { return contains(itemContainers, role); }
bool endsSearch(std::string_view role) { return contains(searchEnds, role); }

}  // namespace norra::linux_desktop
