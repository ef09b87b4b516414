#include "Platform/Linux/elements/RoleMapping.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/reading/ElementView.h"

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

// Firefox takes an editor for a single line where the page does not say that it has more.
bool isEditorOfPage(const AtspiFacts& facts, Toolkit toolkit) {
  const auto tag = facts.attributes.find("tag");
  const bool isInput = tag == facts.attributes.end() || tag->second == "input";
  return toolkit == Toolkit::gecko && hasState(facts.states, AtspiState::editable) && !isInput &&
         hasXmlRole(facts, "textbox");
}

RoleAndSubrole textField(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  if (surroundings.hidesText) return {"AXTextField", "AXSecureTextField"};
  const bool isEditor = hasState(facts.states, AtspiState::multiLine) || isEditorOfPage(facts, surroundings.toolkit);
  if (isEditor) return {"AXTextArea", ""};
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

RoleAndSubrole mappedRole(const ElementView& view) {
  const auto role = view.role();
  const auto& facts = view.need(asksForRole(role, view.toolkit()));
  RoleSurroundings surroundings{view.toolkit(), std::nullopt, view.reader().isRadioGroup(view.reference()),
                                hidesText(view)};
  if (roleDependsOnParent(role)) surroundings.parentRole = view.other(view.need(Ask::parent).parent).role();
  return mapRole(facts, surroundings);
}

}  // namespace norra::linux_desktop
