#include "Platform/Linux/elements/RoleMapping.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxLevelsInRadioGroup = 8;
constexpr std::size_t maxPartsOfComboBox = 4;
constexpr int maxPartsOfCard = 6;
constexpr int maxPartsInPartOfCard = 2;

bool isMenuOpener(const AtspiFacts& facts) { return hasState(facts.states, AtspiState::hasPopup); }

bool opensAndCloses(const AtspiFacts& facts) {
  return hasState(facts.states, AtspiState::expandable) && !isMenuOpener(facts);
}

RoleAndSubrole pushButton(const AtspiFacts& facts) {
  if (isMenuOpener(facts)) return {"AXMenuButton", ""};
  return opensAndCloses(facts) ? RoleAndSubrole{"AXCheckBox", "AXToggle"} : RoleAndSubrole{"AXButton", ""};
}

RoleAndSubrole toggleButton(const AtspiFacts& facts) {
  if (isMenuOpener(facts)) return {"AXMenuButton", ""};
  return {"AXCheckBox", hasXmlRole(facts, "switch") ? "AXSwitch" : "AXToggle"};
}

bool isSearchField(const AtspiFacts& facts) {
  if (hasXmlRole(facts, "searchbox")) return true;
  const auto type = facts.attributes.find("text-input-type");
  return type != facts.attributes.end() && type->second == "search";
}

RoleAndSubrole textField(const AtspiFacts& facts) {
  // A search field that a page makes itself has a line only, whatever its browser says of that.
  if (isSearchField(facts)) return {"AXTextField", "AXSearchField"};
  return {hasState(facts.states, AtspiState::multiLine) ? "AXTextArea" : "AXTextField", ""};
}

RoleAndSubrole menuPart(AtspiRole role, const RoleSurroundings& surroundings) {
  const auto parent = surroundings.parentRole;
  if (parent == AtspiRole::menuBar) return {"AXMenuBarItem", ""};
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

bool isTypedInto(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  return surroundings.holdsField || hasState(facts.states, AtspiState::editable);
}

// Right in the combo box, or in what only keeps its parts in line.
bool holdsField(const ElementView& view, int levels) {
  return std::ranges::any_of(firstChildren(view, maxPartsOfComboBox), [&](const auto& child) {
    const auto part = view.other(child);
    const bool isInside = levels > 0 && is(part.role(), RoleKind::mereContainer) && holdsField(part, levels - 1);
    return isInside || is(part.role(), RoleKind::field);
  });
}

bool mayHoldRadioButtons(AtspiRole role) { return role == AtspiRole::panel || role == AtspiRole::grouping; }

// Whether a radio button that the pointer is in lies in the element, with nothing between that means anything. No
// toolkit calls a group of radio buttons one.
bool holdsPointedRadioButton(const ElementView& view) {
  auto current = view.reader().pointed();
  bool isHeld = false;
  for (int level = 0; level < maxLevelsInRadioGroup && !current.isNull(); ++level) {
    if (current == view.reference()) return isHeld;
    const auto inside = view.other(current);
    const bool meansNothing = inside.role() == AtspiRole::filler || inside.role() == AtspiRole::label;
    isHeld = inside.role() == AtspiRole::radioButton || (isHeld && meansNothing);
    current = inside.need(Ask::parent).parent;
  }
  return false;
}

bool isPartOfCard(const AtspiFacts& facts) {
  using enum AtspiRole;
  constexpr std::array parts{heading, label, image, link, paragraph, pushButton, section, staticText};
  const bool isPart = std::ranges::find(parts, static_cast<AtspiRole>(facts.role)) != parts.end();
  return isPart && facts.childCount <= maxPartsInPartOfCard && !hasState(facts.states, AtspiState::editable);
}

// A page may be told itself of all clicks in it; what holds other containers is no card.
bool isCard(const ElementView& view) {
  const auto& facts = view.need(asksForRole(view.role(), view.toolkit()));
  const bool mayBe = view.toolkit().showsWebPages && view.role() == AtspiRole::section &&
                     facts.firstActionName == "click" && facts.childCount > 0 && facts.childCount <= maxPartsOfCard;
  if (!mayBe) return false;
  const auto parts = firstChildren(view, maxPartsOfCard);
  std::vector<AtspiQuestion> questions;
  for (const auto& part : parts) questions.push_back({part, view.generalAsks() | Ask::childCount});
  view.reader().read(questions);
  return std::ranges::all_of(parts, [&](const auto& part) { return isPartOfCard(view.reader().known(part)); });
}

RoleAndSubrole standardRole(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const auto role = static_cast<AtspiRole>(facts.role);
  switch (role) {
    case AtspiRole::pushButton: return pushButton(facts);
    case AtspiRole::toggleButton: return toggleButton(facts);
    case AtspiRole::comboBox: return {isTypedInto(facts, surroundings) ? "AXComboBox" : "AXPopUpButton", ""};
    case AtspiRole::text:
    case AtspiRole::entry: return textField(facts);
    case AtspiRole::panel:
    case AtspiRole::grouping:
    case AtspiRole::filler: return panel(facts, surroundings);
    case AtspiRole::separator: return {hasState(facts.states, AtspiState::focusable) ? "AXSplitter" : "AXGroup", ""};
    default: return is(role, RoleKind::menuPart) ? menuPart(role, surroundings) : rowOf(role).name;
  }
}

bool isSecret(AtspiRole role, const RoleSurroundings& surroundings) {
  return surroundings.hidesText && (role == AtspiRole::text || role == AtspiRole::entry);
}

}  // namespace

bool isExpander(const ElementView& view) {
  const bool isButton = view.role() == AtspiRole::toggleButton || view.role() == AtspiRole::pushButton;
  return isButton && opensAndCloses(view.need(Ask::states));
}

bool hasXmlRole(const AtspiFacts& facts, std::string_view role) {
  const auto roles = facts.attributes.find("xml-roles");
  if (roles == facts.attributes.end()) return false;
  return (" " + roles->second + " ").find(" " + std::string(role) + " ") != std::string::npos;
}

RoleAndSubrole mapRole(const AtspiFacts& facts, const RoleSurroundings& surroundings, const Toolkit& toolkit) {
  if (isSecret(static_cast<AtspiRole>(facts.role), surroundings)) return {"AXTextField", "AXSecureTextField"};
  const auto own = toolkit.ownRole ? toolkit.ownRole(facts, surroundings) : RoleAndSubrole{};
  return own.role.empty() ? standardRole(facts, surroundings) : own;
}

RoleAndSubrole mappedRole(const ElementView& view) {
  const auto role = view.role();
  const auto& facts = view.need(asksForRole(role, view.toolkit()));
  const bool mayHoldField = role == AtspiRole::comboBox && view.toolkit().hidesFieldsInComboBoxes;
  RoleSurroundings surroundings{std::nullopt, mayHoldRadioButtons(role) && holdsPointedRadioButton(view),
                                mayHoldField && holdsField(view, 1), isCard(view), hidesText(view)};
  if (is(role, RoleKind::menuPart)) surroundings.parentRole = view.parent().role();
  return mapRole(facts, surroundings, view.toolkit());
}

}  // namespace norra::linux_desktop
