// Qt 5 and 6.
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

Asks asksForQtRole(AtspiRole role) { return role == AtspiRole::comboBox ? Asks{Ask::childCount} : Asks{}; }

// Beside its list, a combo box holds only the field of one that can be written into.
RoleAndSubrole ownRole(const AtspiFacts& facts, const RoleSurroundings& /*surroundings*/) {
  const bool isWritable = static_cast<AtspiRole>(facts.role) == AtspiRole::comboBox && facts.childCount > 1;
  return isWritable ? RoleAndSubrole{"AXComboBox", ""} : RoleAndSubrole{};
}

// It calls the list of tabs by the tab that is open, and a combo box by what is chosen.
std::string_view properName(std::string_view name, AtspiRole role) {
  const bool isValue = role == AtspiRole::pageTabList || role == AtspiRole::comboBox;
  return isValue ? std::string_view() : name;
}

// The name of Qt's own classes, or of what they are made of.
bool isOfQt(std::string_view name) {
  return name.starts_with("qt_") || (name.size() > 1 && name[0] == 'Q' && name[1] >= 'A' && name[1] <= 'Z');
}

// A path of what objects are called, or else their classes. Items and tabs have that of what they lie in, and views are
// called by their names there.
std::string_view properIdentifier(const AtspiFacts& facts) {
  const std::string_view identifier = facts.accessibleId;
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool isOfAnother = is(role, RoleKind::item) || role == AtspiRole::pageTab || identifier == facts.name;
  return isOfAnother || isOfQt(identifier.substr(identifier.rfind('.') + 1)) ? std::string_view() : identifier;
}

// The box of a group that can be switched off.
bool isCheckableGroup(const AtspiFacts& facts) { return static_cast<AtspiRole>(facts.role) == AtspiRole::checkBox; }

}  // namespace

const Toolkit qt{
    .viewsTellSelections = false,
    .tellsSelectedRowsOfTrees = false,
    .isLabelledByOwnParts = false,
    .namesComboBoxesByTheirValue = true,
    .tellsFocusOnlyWhereItIs = false,
    .asksForRole = asksForQtRole,
    .ownRole = ownRole,
    .properName = properName,
    .properIdentifier = properIdentifier,
    .isAroundContent = isCheckableGroup,
};

}  // namespace norra::linux_desktop
