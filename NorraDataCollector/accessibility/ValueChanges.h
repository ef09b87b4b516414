// How a changed value becomes an action: a text, a password, a slider, a spinner or a toggle, by the element's role.
#pragma once

#include <optional>

#include "NorraDataCollector/accessibility/FocusedElementData.h"
#include "NorraDataCollector/model/Action.h"

namespace norra {

/// The change from the baseline to the current text as an action, after which the current text is the baseline.
/// Nothing when nothing changed (unless `logUnchanged`), when the value is not tracked, or when the text is longer than
/// what is reported. Main thread.
std::optional<Action> takeTextChange(FocusedElementData& data, bool logUnchanged);

/// The action for a text that the element took on; nothing for one of maxLogStringCount characters or more. Of a
/// password nothing but the change itself is told.
std::optional<Action> actionForChangedText(const AXUIElement& element, const std::string& role,
                                           const std::string& subrole, const std::string& text, bool isPassword);

}  // namespace norra
