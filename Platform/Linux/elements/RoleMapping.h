// From AT-SPI's roles to the roles and subroles of the core: the table of reading/Roles.h, what states and surroundings
// add to it, and what a toolkit means otherwise.
#pragma once

#include <string_view>

#include "Platform/Linux/reading/Toolkit.h"

namespace norra::linux_desktop {

class ElementView;

/// The facts that asksForRole names, and the surroundings, decide. Never without a role.
RoleAndSubrole mapRole(const AtspiFacts& facts, const RoleSurroundings& surroundings, const Toolkit& toolkit);

/// The role of an element, for which what is needed of it and around it is read.
RoleAndSubrole mappedRole(const ElementView& view);

/// Whether the element is a button that shows and hides what belongs to it, and so is on or off.
bool isExpander(const ElementView& view);

/// Whether one of the roles that a web page gives an element is this one.
bool hasXmlRole(const AtspiFacts& facts, std::string_view role);

}  // namespace norra::linux_desktop
