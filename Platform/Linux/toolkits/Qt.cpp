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

// The box of a group that can be switched off.
bool isCheckableGroup(const AtspiFacts& facts) { return static_cast<AtspiRole>(facts.role) == AtspiRole::checkBox; }

}  // namespace

const Toolkit qt{
    .viewsTellSelections = false,
    .isLabelledByOwnParts = false,
    .namesComboBoxesByTheirValue = true,
    .tellsFocusOnlyWhereItIs = false,
    .asksForRole = asksForQtRole,
    .ownRole = ownRole,
    .properName = properName,
    .isAroundContent = isCheckableGroup,
};

}  // namespace norra::linux_desktop
