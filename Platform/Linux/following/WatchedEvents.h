// Which events tell that the value or the selection of an element changed.
#pragma once

#include <string_view>
#include <vector>

#include "Platform/Linux/atspi/AtspiEvents.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

/// None for an element whose value cannot change or is never reported. Text-changed events, which carry the text, are
/// not among those of a field whose text is hidden or could be: its caret tells enough.
std::vector<AtspiEventKind> valueEvents(const ElementView& view);

/// Whether the element is a combo box that cannot be typed into.
bool isDropDown(const ElementView& view);

/// Whether changes of the value come without an event, so that it is to be looked at after what the user does.
bool changesSilently(const ElementView& view);

/// Whether something of it can change that is told: its value or what is selected in it.
bool isFollowed(const ElementView& view);

/// None for an element that is not a list, table or tree.
std::vector<AtspiEventKind> selectionEvents(const ElementView& view);

/// What a change of the selection is called: by what is selected.
std::string_view selectionNotification(const ElementView& view);

/// Tells two values of an element apart without holding either.
std::size_t valueFingerprint(const ElementView& view);

}  // namespace norra::linux_desktop
