// Items of menus, and of the open lists of combo boxes: what they belong to.
#pragma once

#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// Whether the element is an item of a menu, or of the open list of a combo box.
bool isItemOfMenu(const ElementView& view);
/// The combo box that the item of a menu belongs to; null: none.
AtspiReference comboBoxOf(const ElementView& item);
/// What an option of an open list lies in, beside the group that it may belong to.
AtspiReference listOfOption(const ElementView& option);
/// The combo box whose list of options this is; null: it is none.
AtspiReference comboBoxOfList(const ElementView& list);
/// What the item, and the menus above it, are called now stays readable when they have gone.
void keepMenuOf(const ElementView& item);

/// Whether the toolkit tells where on the screen an element is.
bool saysPlaceOnScreen(const ElementView& view);

}  // namespace norra::linux_desktop
