// What the role of an element says about it, whatever it is called in the core.
#pragma once

#include "Platform/Linux/atspi/AtspiRole.h"
#include "Platform/Linux/reading/AtspiApplication.h"
#include "Platform/Linux/reading/AtspiFacts.h"

namespace norra::linux_desktop {

/// Whether applications made with it show web pages.
bool showsWebPages(Toolkit toolkit);

/// Whether the role of the parent takes part in the mapping.
bool roleDependsOnParent(AtspiRole role);
/// What the mapping needs of the element beside its role.
Asks asksForRole(AtspiRole role, Toolkit toolkit);

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
bool endsSearch(AtspiRole role);

}  // namespace norra::linux_desktop
