#include "NorraDataCollector/accessibility/AccessibilityNotificationCollector.h"

#include <array>
#include <string>
#include <utility>

#include "NorraDataCollector/accessibility/SelectionChanges.h"
#include "NorraDataCollector/accessibility/ValueChanges.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra {
namespace {

using NorraDataCollectorLogging::defaultLogger;

namespace notification {
constexpr std::string_view focusedUIElementChanged = "AXFocusedUIElementChanged";
constexpr std::string_view valueChanged = "AXValueChanged";
constexpr std::string_view selectedCellsChanged = "AXSelectedCellsChanged";
constexpr std::string_view selectedRowsChanged = "AXSelectedRowsChanged";
constexpr std::string_view selectedChildrenChanged = "AXSelectedChildrenChanged";
}  // namespace notification

/// Registered on the focused element, in this order.
constexpr std::array elementNotifications{notification::valueChanged, notification::selectedCellsChanged,
                                          notification::selectedRowsChanged, notification::selectedChildrenChanged};

constexpr std::chrono::seconds quietTime{1};

/// Logs a code that is neither success nor the given one.
void logUnless(AXError expected, AXError error, std::string_view operation, std::string_view name) {
  if (error == axError::success || error == expected) return;
  defaultLogger().error(std::string(operation) + " '" + std::string(name) + "' error: " + std::to_string(error));
}

}  // namespace

AccessibilityNotificationCollector::AccessibilityNotificationCollector(MainRunLoop& mainRunLoop,
                                                                       ProcessIdentifier processID,
                                                                       CollectedAction collectedAction)
    : mainRunLoop_(mainRunLoop), processID_(processID), collectedAction_(std::move(collectedAction)) {}

std::shared_ptr<AccessibilityNotificationCollector> AccessibilityNotificationCollector::create(
    Accessibility& accessibility, MainRunLoop& mainRunLoop, ProcessIdentifier processID,
    CollectedAction collectedAction) {
  std::shared_ptr<AccessibilityNotificationCollector> collector(
      new AccessibilityNotificationCollector(mainRunLoop, processID, std::move(collectedAction)));
  return collector->observe(accessibility) ? collector : nullptr;
}

AccessibilityNotificationCollector::~AccessibilityNotificationCollector() {
  if (!observer_) return;
  observer_->removeSourceFromMainRunLoop();
  drainText(false);
}

bool AccessibilityNotificationCollector::observe(Accessibility& accessibility) {
  auto created = accessibility.createObserver(
      processID_, [this](const AXUIElement& element, std::string_view name) { handle(element, name); });
  if (created.error != axError::success || !created.value) {
    defaultLogger().error("Failed to create AXObserver, error " + std::to_string(created.error));
    return false;
  }
  observer_ = std::move(created.value);
  const auto application = accessibility.createApplication(processID_);
  add(notification::focusedUIElementChanged, application);
  follow(focusedElementData(ax::focusedElement(application)));
  observer_->addSourceToMainRunLoop();
  return true;
}

std::optional<Action> AccessibilityNotificationCollector::stop() {
  observer_->removeSourceFromMainRunLoop();
  return manuallyDrainText(false);
}

void AccessibilityNotificationCollector::drainText(bool logUnchanged) { report(manuallyDrainText(logUnchanged)); }

std::optional<Action> AccessibilityNotificationCollector::manuallyDrainText(bool logUnchanged) {
  if (drainTextDebouncer_) drainTextDebouncer_->cancel();
  if (!focusedElementData_) return std::nullopt;
  return takeTextChange(*focusedElementData_, logUnchanged);
}

void AccessibilityNotificationCollector::handle(const AXUIElement& element, std::string_view name) {
  if (name == notification::valueChanged) return changedValue(element);
  if (name == notification::focusedUIElementChanged) return changedFocus(element);
  if (name == notification::selectedRowsChanged) return report(changedSelectedRows(element, focused()));
  if (name == notification::selectedCellsChanged) return report(changedSelectedCells(element, focused()));
  if (name == notification::selectedChildrenChanged) return report(changedSelectedChildren(element, focused()));
  defaultLogger().error("Unhandled event " + std::string(name));
}

void AccessibilityNotificationCollector::changedValue(const AXUIElement& element) {
  auto text = FocusedElementData::valueToText(ax::value(element, attribute::value));
  if (!text) return;
  if (focusedElementData_) focusedElementData_->setText(*std::move(text));
  debounceDrainText();
}

void AccessibilityNotificationCollector::changedFocus(const AXUIElement& element) {
  drainText(false);
  const auto application = ax::application(element);
  follow(focusedElementData(application ? ax::focusedElement(*application) : std::nullopt));
}

void AccessibilityNotificationCollector::follow(std::optional<FocusedElementData> focused) {
  if (focusedElementData_) {
    for (const auto name : elementNotifications) remove(name, focusedElementData_->element());
  }
  focusedElementData_ = std::move(focused);
  if (focusedElementData_) {
    for (const auto name : elementNotifications) add(name, focusedElementData_->element());
  }
}

void AccessibilityNotificationCollector::debounceDrainText() {
  if (!drainTextDebouncer_) {
    drainTextDebouncer_ = std::make_unique<Debouncer>(mainRunLoop_, quietTime, [weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->drainText(false);
    });
  }
  drainTextDebouncer_->debounce();
}

void AccessibilityNotificationCollector::report(const std::optional<Action>& action) {
  if (action) collectedAction_(*action);
}

FocusedElementData* AccessibilityNotificationCollector::focused() {
  return focusedElementData_ ? &*focusedElementData_ : nullptr;
}

void AccessibilityNotificationCollector::add(std::string_view name, const AXUIElement& element) {
  logUnless(axError::notificationAlreadyRegistered, observer_->addNotification(element, name),
            "AXObserverAddNotification", name);
}

void AccessibilityNotificationCollector::remove(std::string_view name, const AXUIElement& element) {
  logUnless(axError::notificationNotRegistered, observer_->removeNotification(element, name),
            "AXObserverRemoveNotification", name);
}

}  // namespace norra
