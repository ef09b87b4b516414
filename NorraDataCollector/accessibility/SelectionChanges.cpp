#include "NorraDataCollector/accessibility/SelectionChanges.h"

#include <utility>

#include "NorraBase/Text.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/NameLists.h"

namespace norra {
namespace {

/// The action's texts but for the new value.
template <typename Data>
Data selectionOf(const AXUIElement& element) {
  Data data;
  data.elementName = collectName({.titleElementOrElement = element}).value_or("");
  data.controlType = collectRoleDescription(element);
  data.automationID = collectAutomationID(element).value_or("");
  return data;
}

bool takeSelectedString(FocusedElementData* focused, const std::string& selected) {
  if (focused == nullptr) return true;
  if (areCanonicallyEquivalent(focused->lastSelectedString(), selected)) return false;
  focused->setLastSelectedString(selected);
  return true;
}

using NamesJoiner = std::string (*)(const std::vector<AXUIElement>&);

template <typename Data>
std::optional<Action> changedSelectedElements(const AXUIElement& element, FocusedElementData* focused,
                                              std::string_view attribute, NamesJoiner joinedNames) {
  auto data = selectionOf<Data>(element);
  auto selected = ax::elements(element, attribute);
  if (focused != nullptr && focused->lastSelectedElements() == selected) return std::nullopt;
  data.newValue = joinedNames(selected);
  if (focused != nullptr) focused->setLastSelectedElements(std::move(selected));
  return data;
}

}  // namespace

std::optional<Action> changedSelectedRows(const AXUIElement& element, FocusedElementData* focused) {
  auto action = changedSelectedElements<ChangeSelectedRowsData>(element, focused, attribute::selectedRows,
                                                                joinedLazilyCollectedRowOrColumnNames);
  if (!action) return std::nullopt;
  if (!takeSelectedString(focused, std::get<ChangeSelectedRowsData>(*action).newValue)) return std::nullopt;
  return action;
}

std::optional<Action> changedSelectedCells(const AXUIElement& element, FocusedElementData* focused) {
  return changedSelectedElements<ChangeSelectedCellsData>(element, focused, attribute::selectedCells,
                                                          joinedLazilyCollectedRowOrColumnNames);
}

std::optional<Action> changedSelectedChildren(const AXUIElement& element, FocusedElementData* focused) {
  return changedSelectedElements<ChangeSelectedChildrenData>(element, focused, attribute::selectedChildren,
                                                             joinedLazilyCollectedListItemElementNames);
}

}  // namespace norra
