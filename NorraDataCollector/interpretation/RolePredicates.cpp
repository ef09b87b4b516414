#include "NorraDataCollector/interpretation/RolePredicates.h"

#include <algorithm>
#include <array>

#include "NorraBase/OneOf.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"

namespace norra {
namespace {

using namespace std::string_view_literals;

constexpr std::array interactiveRoles{role::button,     role::radioButton,    role::checkBox,    role::popUpButton,
                                      role::menuButton, role::menuItem,       role::comboBox,    role::link,
                                      role::slider,     role::valueIndicator, role::incrementor, role::dockItem};

constexpr std::array textRoles{role::textArea, role::textField, role::staticText, role::link, role::heading};

constexpr std::array boundaryRoles{role::table,      role::outline,     role::grid,      role::menuBar,  role::tabGroup,
                                   role::radioGroup, role::application, role::window,    role::popover,  role::toolbar,
                                   role::list,       role::splitGroup,  role::scrollBar, role::splitter, role::webArea};

constexpr std::array interactiveActionNames{"AXCancel"sv,    "AXConfirm"sv, "AXDecrement"sv,
                                            "AXIncrement"sv, "AXPick"sv,    "AXPress"sv};

}  // namespace

bool isInteractive(std::string_view role) { return isOneOf(interactiveRoles, role); }

bool isText(std::string_view role) { return isOneOf(textRoles, role); }

bool canContinueSearch(std::string_view role, bool includingRowsAndCells) {
  if (role == role::row || role == role::cell) return includingRowsAndCells;
  return !isOneOf(boundaryRoles, role);
}

bool hasInteractiveAction(const std::vector<std::string>& actions) {
  return std::ranges::any_of(actions, [](const auto& action) { return isOneOf(interactiveActionNames, action); });
}

}  // namespace norra
