#include "Platform/Linux/following/WatchedEvents.h"

#include <array>
#include <functional>

#include "Platform/Linux/elements/Text.h"

namespace norra::linux_desktop {
namespace {

constexpr std::array numbers{AtspiRole::slider, AtspiRole::spinButton, AtspiRole::scrollBar, AtspiRole::dial};

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

// GTK 4 sends the characters of fields whose text it hides.
bool mayHideText(const ElementView& view) { return view.toolkit() == Toolkit::gtk4 || hidesText(view); }

bool isNativeTextArea(const ElementView& view) {
  return view.hasState(AtspiState::multiLine) && !view.application().showsWebPages();
}

std::vector<AtspiEventKind> textEvents(const ElementView& view) {
  if (isNativeTextArea(view)) return {};
  return {mayHideText(view) ? caretMoved(view.reference()) : textChanged(view.reference())};
}

}  // namespace

std::vector<AtspiEventKind> valueEvents(const ElementView& view) {
  const auto role = view.role();
  const auto& source = view.reference();
  if (isTextField(role)) return textEvents(view);
  if (role == AtspiRole::spinButton) return {numberChanged(source), textChanged(source)};
  if (isOneOf(numbers, role)) return {numberChanged(source)};
  if (role == AtspiRole::toggleButton) return {stateChanged("checked", source), stateChanged("pressed", source)};
  if (isCheckable(role)) return {stateChanged("checked", source)};
  return {};
}

bool changesSilently(const ElementView& view) {
  if (isTextField(view.role())) return mayHideText(view) && !isNativeTextArea(view);
  return view.toolkit() == Toolkit::gtk4 && isOneOf(numbers, view.role());
}

std::vector<AtspiEventKind> selectionEvents(const ElementView& view) {
  if (!isItemContainer(view.role())) return {};
  // Qt's views are silent, only their items tell.
  if (view.toolkit() == Toolkit::qt) return {stateChanged("selected", {view.reference().busName, ""})};
  return {{"object:selection-changed", "SelectionChanged", "", view.reference()}};
}

std::string_view selectionNotification(const ElementView& view) {
  const auto role = view.role();
  if (!isTableLike(role)) return "AXSelectedChildrenChanged";
  const bool hasCellsOnly = view.toolkit() == Toolkit::qt && role == AtspiRole::table;
  if (hasCellsOnly && view.need(Ask::selectedRows).selectedRows.empty()) return "AXSelectedCellsChanged";
  return "AXSelectedRowsChanged";
}

std::size_t valueFingerprint(const ElementView& view) {
  if (!isTextField(view.role())) return std::hash<double>()(view.need(Ask::currentValue).currentValue);
  if (hidesText(view)) return static_cast<std::size_t>(view.need(Ask::characterCount).characterCount);
  return std::hash<std::string>()(view.need(Ask::displayedText).displayedText);
}

}  // namespace norra::linux_desktop
