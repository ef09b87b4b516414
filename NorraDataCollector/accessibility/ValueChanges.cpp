#include "NorraDataCollector/accessibility/ValueChanges.h"

#include <utility>

#include "NorraBase/Text.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"

namespace norra {
namespace {

/// What every changed value tells of its element.
struct ChangedElement {
  std::string name;
  std::string controlType;
  std::string automationID;

  template <typename Data>
  Action changed(const std::string& newValue) const {
    return Data{.elementName = name, .controlType = controlType, .automationID = automationID, .newValue = newValue};
  }
};

Action changedValue(const ChangedElement& element, std::string_view role, const std::string& text) {
  if (role == role::slider) return element.changed<ChangeSliderData>(text);
  if (role == role::incrementor) return element.changed<ChangeSpinnerData>(text);
  if (role == role::checkBox) return element.changed<ToggleData>(text);
  return element.changed<ChangeTextData>(text);
}

}  // namespace

std::optional<Action> takeTextChange(FocusedElementData& data, bool logUnchanged) {
  if (!data.shouldTrackValue()) return std::nullopt;
  if (!logUnchanged && areCanonicallyEquivalent(data.text(), data.initialText())) return std::nullopt;
  data.setInitialText(data.text());
  return actionForChangedText(data.element(), data.role(), data.subrole(), data.text(), data.isPassword());
}

std::optional<Action> actionForChangedText(const AXUIElement& element, const std::string& role,
                                           const std::string& subrole, const std::string& text, bool isPassword) {
  ChangedElement changed;
  changed.name = collectName({.titleElementOrElement = element}).value_or("");
  changed.automationID = collectAutomationID(element).value_or("");
  changed.controlType = collectRoleDescription(element, role, subrole, ax::roleDescription(element));
  if (hasMoreCharactersThan(text, maxLogStringCount - 1)) return std::nullopt;
  if (isPassword) return changed.changed<ChangePasswordData>("");
  return changedValue(changed, role, text);
}

}  // namespace norra
