// From AT-SPI's roles to the roles and subroles of the core.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Platform/Linux/atspi/AtspiRole.h"
#include "Platform/Linux/reading/AtspiApplication.h"
#include "Platform/Linux/reading/AtspiFacts.h"

namespace norra::linux_desktop {

struct RoleAndSubrole {
  std::string_view role;
  /// Empty: none.
  std::string_view subrole;
  bool operator==(const RoleAndSubrole&) const = default;
};

/// What decides a role beside the element's own facts.
struct RoleSurroundings {
  Toolkit toolkit = Toolkit::other;
  /// Of the element that this one lies in; nothing where it was not asked for. See roleDependsOnParent.
  std::optional<AtspiRole> parentRole = std::nullopt;
  /// Whether radio buttons lie in this element.
  bool holdsRadioButtons = false;
  /// Whether it is, or ever was, a field whose text is hidden.
  bool hidesText = false;
};

/// Whether the role of the parent takes part in the mapping.
bool roleDependsOnParent(AtspiRole role);
/// What the mapping needs of the element beside its role.
Asks asksForRole(AtspiRole role, Toolkit toolkit);

/// The facts that asksForRole names, and the surroundings, decide. Never without a role.
RoleAndSubrole mapRole(const AtspiFacts& facts, const RoleSurroundings& surroundings);

/// Whether an element of this role holds a text that the user can write.
bool isTextField(AtspiRole role);
/// Whether it is on or off.
bool isCheckable(AtspiRole role);
/// Whether an element of this role offers no action that counts, whatever it says, so that it need not be asked. Not
/// for web pages.
bool isMereContainer(AtspiRole role);
/// Whether it shows its children as rows of cells.
bool isTableLike(AtspiRole role);
/// Whether it is a list, a table, a tree or the like, whose items are selected in it.
bool isItemContainer(AtspiRole role);
/// Whether nothing above an element of this role matters for what happened in it.
bool endsSearch(std::string_view role);

}  // namespace norra::linux_desktop
