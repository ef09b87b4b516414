// Which element has the keyboard focus.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

class AtspiContext;
class ElementView;

/// The element of a process that has the focus, as its events told, else as a bounded search finds it; null: none. In
/// lists, tables and trees it is the container.
AtspiReference focusedElementOf(AtspiContext& context, ProcessIdentifier process);

/// Looks at the element that events of an application told of last, if that was not done yet, and gives the one that is
/// followed now; null: none is known. An item of a menu, or of the list of a combo box, is remembered as such and not
/// followed.
AtspiReference settleFocus(AtspiContext& context, const std::string& busName);

/// Whether the element is an item of a menu, or of the open list of a combo box.
bool isItemOfMenu(const ElementView& view);
/// The combo box that the item of a menu belongs to; null: none. Reads the item and the menus above it, which stays
/// readable when they have gone.
AtspiReference comboBoxOf(const ElementView& item);

/// The top-level of an application that is active; null: none.
AtspiReference activeWindowOf(AtspiContext& context, const AtspiReference& root);

/// The list, table or tree that an item lies in, if it is an item of one; else the element itself.
AtspiReference followedElement(const ElementView& focused);

}  // namespace norra::linux_desktop
