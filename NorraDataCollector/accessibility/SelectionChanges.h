// How a changed selection becomes an action.
//
// Applications announce a selection more than once, and announce other things as one. So what was selected last is
// remembered with the focused element, and a repetition is not reported. Rows are compared by their names too, since
// tables make new elements for the same rows; the container is read before either comparison.
#pragma once

#include <optional>

#include "NorraDataCollector/accessibility/FocusedElementData.h"
#include "NorraDataCollector/model/Action.h"

namespace norra {

/// The new selection of an element as an action; nothing when it repeats what `focused` remembers as the last one,
/// which is brought up to date. Without a focused element (null) every selection is reported. Main thread.
std::optional<Action> changedSelectedRows(const AXUIElement& element, FocusedElementData* focused);
std::optional<Action> changedSelectedCells(const AXUIElement& element, FocusedElementData* focused);
std::optional<Action> changedSelectedChildren(const AXUIElement& element, FocusedElementData* focused);

}  // namespace norra
