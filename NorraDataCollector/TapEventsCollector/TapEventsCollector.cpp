#include "NorraDataCollector/TapEventsCollector/TapEventsCollector.h"

#include <chrono>
#include <utility>

#include "NorraDataCollector/TapEventsCollector/KeyNaming.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ClickClassification.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/WebContext.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra {
namespace {

using NorraDataCollectorLogging::defaultLogger;
using namespace std::chrono_literals;

constexpr CGEventMask eventsOfInterest = maskOf(CGEventType::leftMouseUp) | maskOf(CGEventType::rightMouseUp) |
                                         maskOf(CGEventType::keyDown) | maskOf(CGEventType::otherMouseUp);

MouseButton buttonOf(CGEventType type) {
  switch (type) {
    case CGEventType::rightMouseUp: return MouseButton::right;
    case CGEventType::otherMouseUp: return MouseButton::other;
    default: return MouseButton::left;
  }
}

/// A released button; a value, so that a retry needs nothing of the collector that saw it.
struct Click {
  Platform platform;
  TapEventsCollector::CollectedAction collectedAction;
  CGPoint location;
  MouseButton button;

  /// Reports what the element means; false when it means nothing (yet).
  bool report(const AXUIElement& element, bool isRetry) const {
    const auto actions = actionsForClick(element, button, isRetry);
    if (actions.empty()) return false;
    const auto process = ax::processIdentifier(element);
    for (const auto& action : actions) collectedAction(action, process);
    return true;
  }

  void retry() const {
    if (const auto element = ax::elementAt(platform.accessibility, location)) report(*element, true);
  }
};

std::chrono::milliseconds retryDelay(const Workspace& workspace, const AXUIElement& element) {
  const auto application = workspace.runningApplication(ax::processIdentifier(element));
  return application && isApplicationChromiumBased(application->bundleIdentifier) ? 128ms : 10ms;
}

/// Plain typing is nothing to report; shift and caps lock belong to it.
bool isReported(const NSEvent& key) {
  if (key.specialKey) return true;
  return (key.modifierFlags & shortcutModifiers) != 0 && !key.charactersIgnoringModifiers.value_or("").empty();
}

template <typename Data>
Data keyPress(const AXUIElement& focused, const NSEvent& key) {
  Data data;
  data.elementName = collectName({.titleElementOrElement = focused}).value_or("");
  data.controlType = collectRoleDescription(focused);
  data.automationID = collectAutomationID(focused).value_or("");
  data.key = keyText(key);
  return data;
}

Action keyAction(const AXUIElement& focused, const NSEvent& key) {
  if ((key.modifierFlags & shortcutModifiers) != 0) return keyPress<KeyCombinationData>(focused, key);
  return keyPress<SpecialKeyData>(focused, key);
}

}  // namespace

std::unique_ptr<TapEventsCollector> TapEventsCollector::create(const Platform& platform,
                                                               CollectedAction collectedAction) {
  std::unique_ptr<TapEventsCollector> collector(new TapEventsCollector(platform, std::move(collectedAction)));
  if (collector->eventTap_) return collector;
  defaultLogger().error("Failed to create event tap");
  return nullptr;
}

TapEventsCollector::TapEventsCollector(const Platform& platform, CollectedAction collectedAction)
    : platform_(platform), collectedAction_(std::move(collectedAction)) {
  eventTap_ = platform.eventTaps.createEventTap(eventsOfInterest, [this](const CGEvent& event) { handle(event); });
  if (!eventTap_) return;
  eventTap_->addSourceToMainRunLoop();
  eventTap_->enable();
}

TapEventsCollector::~TapEventsCollector() {
  if (eventTap_) eventTap_->removeSourceFromMainRunLoop();
}

void TapEventsCollector::handle(const CGEvent& event) {
  switch (event.type) {
    case CGEventType::tapDisabledByTimeout:
    case CGEventType::tapDisabledByUserInput:
      defaultLogger().error("Too slow. Event tap cancelled.");
      return eventTap_->enable();
    case CGEventType::leftMouseUp:
    case CGEventType::rightMouseUp:
    case CGEventType::otherMouseUp: return handleClick(event);
    case CGEventType::keyDown: return handleKey(event);
  }
}

void TapEventsCollector::handleClick(const CGEvent& event) {
  const auto element = ax::elementAt(platform_.accessibility, event.location);
  if (!element) return;
  const Click click{platform_, collectedAction_, event.location, buttonOf(event.type)};
  if (click.report(*element, false)) return;
  platform_.mainRunLoop.postAfter(retryDelay(platform_.workspace, *element), [click] { click.retry(); });
}

void TapEventsCollector::handleKey(const CGEvent& event) {
  const auto focused = ax::systemWideFocusedElement(platform_.accessibility);
  if (!focused || !event.keyEvent || event.keyEvent->isARepeat) return;
  const auto& key = *event.keyEvent;
  if (!isReported(key)) return collectedAction_(UndefinedData(), ax::processIdentifier(*focused));
  drainTextBefore(key);
  const auto action = keyAction(*focused, key);
  collectedAction_(action, ax::processIdentifier(*focused));
}

void TapEventsCollector::drainTextBefore(const NSEvent& key) {
  if (key.specialKey != NSEvent::SpecialKey::carriageReturn) return;
  if (const auto collector = accessibilityNotificationCollector_.load().lock()) collector->drainText(true);
}

}  // namespace norra
