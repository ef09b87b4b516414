// What a click means: the actions on the control that the user meant, found from the element under the pointer.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NorraDataCollector/interpretation/SearchData.h"
#include "NorraDataCollector/model/Action.h"
#include "Platform/Accessibility.h"

namespace norra {

/// None, one or two actions. An empty list asks for one more try a little later, with `isRetry`: the application may
/// not be done with the click, and a check box has its new state only then. Keeps nothing between calls. Any thread.
std::vector<Action> actionsForClick(const std::optional<AXUIElement>& clicked, MouseButton mouseButton, bool isRetry);

/// The name behind the label of the control, such as "Font size: 12"; the label is left out where it is absent, empty
/// or the name itself.
std::string labelledElementName(const SearchData& searchData, const std::string& name);

}  // namespace norra
