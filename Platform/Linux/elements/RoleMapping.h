// From AT-SPI's roles to the roles and subroles of the core.
#pragma once

#include <optional>
#include <string_view>

#include "Platform/Linux/reading/RoleKinds.h"

namespace norra::linux_desktop {

class ElementView;

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

/// The facts that asksForRole names, and the surroundings, decide. Never without a role.
RoleAndSubrole mapRole(const AtspiFacts& facts, const RoleSurroundings& surroundings);

/// Of one element; what is missing is read.
RoleAndSubrole mappedRole(const ElementView& view);

}  // namespace norra::linux_desktop
