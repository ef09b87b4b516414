#include "Platform/Linux/following/WatchedEvents.h"

#include <functional>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/elements/Value.h"

namespace norra::linux_desktop {
namespace {

AtspiEventKind textChanged(const AtspiReference& source) { return {"object:text-changed", "TextChanged", "", source}; }

AtspiEventKind caretMoved(const AtspiReference& source) {
  return {"object:text-caret-moved", "TextCaretMoved", "", source};
}

AtspiEventKind stateChanged(const std::string& state, const AtspiReference& source) {
  return {"object:state-changed:" + state, "StateChanged", state, source};
}

AtspiEventKind numberChanged(const AtspiReference& source) {
  return {"object:property-change:accessible-value", "PropertyChange", "accessible-value", source};
}

AtspiEventKind nameChanged(const AtspiReference& source) {
  return {"object:property-change:accessible-name", "PropertyChange", "accessible-name", source};
}

// The events of a hidden text that is given away hold its characters.
bool mayHideText(const ElementView& view) { return view.toolkit().givesHiddenTextAway || hidesText(view); }

bool isNativeTextArea(const ElementView& view) {
  return view.hasState(AtspiState::multiLine) && !view.toolkit().showsWebPages;
}

std::vector<AtspiEventKind> textEvents(const ElementView& view) {
  if (isNativeTextArea(view)) return {};
  return {mayHideText(view) ? caretMoved(view.reference()) : textChanged(view.reference())};
}

// What is written in a combo box is told of by the field in it.
std::vector<AtspiEventKind> eventsOfNameAndField(const ElementView& comboBox) {
  std::vector<AtspiEventKind> events{nameChanged(comboBox.reference())};
  for (const auto& child : fewChildren(comboBox)) {
    if (is(comboBox.other(child).role(), RoleKind::field)) events.push_back(textChanged(child));
  }
  return events;
}

// The list inside a drop-down tells that another of its items was chosen.
std::vector<AtspiEventKind> comboBoxEvents(const ElementView& view) {
  if (view.toolkit().namesComboBoxesByTheirValue) return eventsOfNameAndField(view);
  if (!isDropDown(view)) return {textChanged(view.reference())};
  return {{"object:selection-changed", "SelectionChanged", "", {view.reference().busName, ""}}};
}

}  // namespace

bool isDropDown(const ElementView& view) {
  return view.role() == AtspiRole::comboBox && mappedRole(view).role == "AXPopUpButton";
}

std::vector<AtspiEventKind> valueEvents(const ElementView& view) {
  const auto role = view.role();
  const auto& source = view.reference();
  if (role == AtspiRole::comboBox) return comboBoxEvents(view);
  if (is(role, RoleKind::field)) return textEvents(view);
  if (role == AtspiRole::spinButton) return {numberChanged(source), textChanged(source)};
  if (is(role, RoleKind::number)) return {numberChanged(source)};
  if (role == AtspiRole::toggleButton) return {stateChanged("checked", source), stateChanged("pressed", source)};
  if (is(role, RoleKind::checkable)) return {stateChanged("checked", source)};
  return {};
}

bool changesSilently(const ElementView& view) {
  if (is(view.role(), RoleKind::field)) return mayHideText(view) && !isNativeTextArea(view);
  if (isDropDown(view)) return true;
  return !view.toolkit().tellsNumbers && is(view.role(), RoleKind::number);
}

std::vector<AtspiEventKind> selectionEvents(const ElementView& view) {
  if (!is(view.role(), RoleKind::itemContainer)) return {};
  if (!view.toolkit().viewsTellSelections) return {stateChanged("selected", {view.reference().busName, ""})};
  return {{"object:selection-changed", "SelectionChanged", "", view.reference()}};
}

bool isFollowed(const ElementView& view) {
  return !valueEvents(view).empty() || changesSilently(view) || !selectionEvents(view).empty();
}

std::string_view selectionNotification(const ElementView& view) {
  const auto role = view.role();
  if (!is(role, RoleKind::tableLike) || mappedRole(view).role == "AXList") return "AXSelectedChildrenChanged";
  const bool hasCellsOnly = !view.toolkit().viewsTellSelections && role == AtspiRole::table;
  if (hasCellsOnly && view.need(Ask::selectedRows).selectedRows.empty()) return "AXSelectedCellsChanged";
  return "AXSelectedRowsChanged";
}

std::size_t valueFingerprint(const ElementView& view) {
  if (view.role() == AtspiRole::comboBox) {
    const auto content = contentOf(view).value;
    const auto* text = std::get_if<std::string>(&content);
    return text ? std::hash<std::string>()(*text) : 0;
  }
  if (!is(view.role(), RoleKind::field)) return std::hash<double>()(view.need(Ask::currentValue).currentValue);
  if (hidesText(view)) return static_cast<std::size_t>(view.need(Ask::characterCount).characterCount);
  return std::hash<std::string>()(view.need(Ask::displayedText).displayedText);
}

}  // namespace norra::linux_desktop
