#include "NorraDataCollector/TapEventsCollector/Rehearsal.h"

#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ClickClassification.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"

namespace norra {

bool rehearseClick(const AXUIElement& element) {
  const bool isTold = !actionsForClick(element, MouseButton::left, true).empty();
  return isTold && ax::processIdentifier(element) != 0;
}

bool rehearseKey(const AXUIElement& element) {
  collectName({.titleElementOrElement = element});
  collectRoleDescription(element);
  collectAutomationID(element);
  return ax::role(element) && ax::processIdentifier(element) != 0;
}

}  // namespace norra
