#include "NorraDataCollector/TapEventsCollector/Rehearsal.h"

#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ClickClassification.h"

namespace norra {

bool rehearseClick(const AXUIElement& element) {
  const bool isTold = !actionsForClick(element, MouseButton::left, true).empty();
  return isTold && ax::processIdentifier(element) != 0;
}

}  // namespace norra
