// What kind of element a role or an action name stands for. The walk of a click and the search for a name go by the
// same answers, so that what can be clicked is what can give a name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norra {

/// A control that a click can mean.
bool isInteractive(std::string_view role);
/// An element whose name is a text on the screen.
bool isText(std::string_view role);
/// Whether a walk may go above an element of this role; containers such as tables, lists and windows end it.
bool canContinueSearch(std::string_view role, bool includingRowsAndCells);
/// Whether one of the actions is something that a user does to a control.
bool hasInteractiveAction(const std::vector<std::string>& actions);

}  // namespace norra
