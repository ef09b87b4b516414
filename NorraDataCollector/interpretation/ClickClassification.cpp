#include "NorraDataCollector/interpretation/ClickClassification.h"

#include <utility>

#include "NorraDataCollector/elements/AttributeValueText.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/NameLists.h"
#include "NorraDataCollector/interpretation/NameSearch.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra {
namespace {

/// No action, and a line of the log that says why.
std::vector<Action> nothing(const SearchData& found, bool isRetry, std::string_view reason) {
  std::string message = "A click on " + found.roles;
  message.append(isRetry ? " gives no report: " : " gives no report yet: ").append(reason);
  NorraDataCollectorLogging::clickLogger().debug(message);
  return {};
}

std::string nameFoundAround(const AXUIElement& element) {
  auto found = searchName(element, SearchDirections::both, false);
  return found ? std::move(found->name) : std::string();
}

ClickHyperlinkData clickedLink(const SearchData& found) {
  return {.elementName = found.linkName.value_or(""),
          .automationID = collectAutomationID(found.linkElement).value_or(""),
          .url = found.url};
}

/// What the actions on one control have in common.
struct Control {
  std::string name;
  std::string labelledName;
  std::string controlType;
  std::string automationID;
  std::string valueText;
};

Control readControl(const SearchData& found) {
  const auto& element = *found.interactiveElement;
  Control control;
  control.automationID = collectAutomationID(element).value_or("");
  control.name = found.interactiveName ? *found.interactiveName : nameFoundAround(element);
  control.labelledName = labelledElementName(found, control.name);
  control.controlType =
      collectRoleDescription(element, found.interactiveRole, found.interactiveSubrole, ax::roleDescription(element));
  if (found.interactiveValue) control.valueText = description(*found.interactiveValue);
  return control;
}

ClickData clickOn(const Control& control, MouseButton button) {
  return {.elementName = control.labelledName,
          .controlType = control.controlType,
          .automationID = control.automationID,
          .button = button};
}

ClickRadioButtonData clickedRadioButton(const SearchData& found, const Control& control) {
  const auto& group = found.groupName ? found.groupName : found.interactiveTitleElementName;
  return {.elementName = control.name,
          .controlType = control.controlType,
          .automationID = control.automationID,
          .groupName = group.value_or("")};
}

ClickData clickedCheckBox(const Control& control, MouseButton button) {
  auto click = clickOn(control, button);
  click.toggleState = toggleStateFromString(control.valueText);
  return click;
}

ClickComboBoxData clickedComboBox(const Control& control, MouseButton button) {
  return {.elementName = control.labelledName,
          .controlType = control.controlType,
          .automationID = control.automationID,
          .comboBoxValue = control.valueText,
          .button = button};
}

ChangeSliderData changedSlider(const Control& control) {
  return {.elementName = control.labelledName,
          .controlType = control.controlType,
          .automationID = control.automationID,
          .newValue = control.valueText};
}

std::vector<Action> actionsForControl(const SearchData& found, MouseButton button, bool isRetry) {
  const auto control = readControl(found);
  const auto& role = found.interactiveRole;
  if (role == role::radioButton) return {clickedRadioButton(found, control)};
  if (role == role::comboBox) return {clickedComboBox(control, button)};
  if (role == role::slider) return {clickOn(control, button), changedSlider(control)};
  if (role != role::checkBox) return {clickOn(control, button)};
  if (!isRetry) return nothing(found, isRetry, "a check box has its new state a moment later");
  return {clickedCheckBox(control, button)};
}

ClickData clickedListItem(const AXUIElement& item, MouseButton button) {
  return {.elementName = collectName({.listItemElement = item}).value_or(""),
          .controlType = collectRoleDescription(item),
          .automationID = collectAutomationID(item).value_or(""),
          .button = button};
}

std::string rowOrCellName(const std::optional<AXUIElement>& element) {
  return element ? collectName({.rowOrColumn = *element}).value_or("") : std::string();
}

std::string columnName(const SearchData& found) {
  if (!found.cellColumnIndexRange || !found.columns) return {};
  const auto column = found.cellColumnIndexRange->location;
  if (column < 0 || column >= std::ssize(*found.columns)) return {};
  const auto header = ax::element((*found.columns)[static_cast<std::size_t>(column)], attribute::header);
  return collectName({.titleElementOrElement = header}).value_or("");
}

std::string rowOrCellAutomationID(const SearchData& found) {
  if (auto identifier = collectAutomationID(found.cell)) return *std::move(identifier);
  return collectAutomationID(found.row).value_or("");
}

std::vector<Action> actionsForRowOrCell(const SearchData& found, const AXUIElement& clicked, MouseButton button,
                                        bool isRetry) {
  auto rowName = rowOrCellName(found.row);
  auto cellName = rowOrCellName(found.cell);
  if (rowName.empty() && cellName.empty()) {
    const bool isInRow = found.row || found.cell;
    return nothing(found, isRetry, isInRow ? "the row and the cell have no name" : "none of these is a control");
  }
  const auto kindRole = rowName.empty() ? role::cell : role::row;
  ClickListItemData item;
  item.elementName = std::move(rowName);
  item.columnValue = std::move(cellName);
  item.button = button;
  item.automationID = rowOrCellAutomationID(found);
  item.columnName = columnName(found);
  item.controlType = collectRoleDescription(clicked, kindRole, std::nullopt, std::nullopt);
  return {std::move(item)};
}

}  // namespace

std::vector<Action> actionsForClick(const std::optional<AXUIElement>& clicked, MouseButton mouseButton, bool isRetry) {
  if (!clicked) return {};
  const auto found = collectSearchData(*clicked);
  if (!found.isInInteractiveHierarchy) return nothing(found, isRetry, "none of these can be clicked");
  if (found.linkElement) return {clickedLink(found)};
  if (found.interactiveElement) return actionsForControl(found, mouseButton, isRetry);
  if (found.listItemElement) return {clickedListItem(*found.listItemElement, mouseButton)};
  return actionsForRowOrCell(found, *clicked, mouseButton, isRetry);
}

std::string labelledElementName(const SearchData& searchData, const std::string& name) {
  const auto& popUpLabel = searchData.popupButtonTitleElementName;
  const bool isPopUpLabelled = popUpLabel && !popUpLabel->empty();
  const auto& label = isPopUpLabelled ? popUpLabel : searchData.interactiveTitleElementName;
  if (!label || *label == name) return name;
  const auto labelWithColon = label->ends_with(':') ? *label : *label + ":";
  return name.empty() ? labelWithColon : labelWithColon + " " + name;
}

}  // namespace norra
