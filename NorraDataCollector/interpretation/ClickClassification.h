// What a click means: the actions on the control that the user meant, found from the element under the pointer.
//
// What lies under the pointer is seldom what was meant: it is the label in the button, the image in the link, the text
// in the cell. So the way from there towards the window is walked once (SearchData.h), and what was met on it is
// weighed in a fixed order: a link before everything, for a link is a link whatever is drawn in it; then a control;
// then the item of a list; last the row and the cell of a table, named by what stands in them. The first of these that
// was met decides, and nothing below it is looked at.
//
// No action is an answer too. Clicks on a window's background, on a scroll bar or between two controls mean nothing
// that a person would tell.
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
