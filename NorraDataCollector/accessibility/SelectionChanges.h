// How a changed selection becomes an action.
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
