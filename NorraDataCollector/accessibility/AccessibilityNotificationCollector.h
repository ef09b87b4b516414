// Follows one application: its focused element, what is typed and set there, and what is selected.
//
// There is one record, of the element that has the focus. Its value and its selections are watched, and when the focus
// moves, the record is replaced and the registrations move with it. So what is watched is always what the person can
// change at this moment, and an application with thousands of elements costs no more than one with three.
//
// A person types a word and not letters. A change of the value therefore only starts a quiet time; the change is
// reported when it has passed, or sooner when something ends the typing: the focus goes elsewhere, Return is pressed,
// another application is followed, collection ends. Each of these is a drain, and what is reported is the difference to
// the value last reported, however many changes lay in between. A text that is typed and deleted again is no change.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "NorraDataCollector/accessibility/Debouncer.h"
#include "NorraDataCollector/accessibility/FocusedElementData.h"
#include "NorraDataCollector/model/Action.h"
#include "Platform/Accessibility.h"
#include "Platform/RunLoop.h"

namespace norra {

/// Belongs to the main thread: made, used and let go there. Letting go of it reports a text change still held back.
class AccessibilityNotificationCollector : public std::enable_shared_from_this<AccessibilityNotificationCollector> {
 public:
  using CollectedAction = std::function<void(const Action&)>;

  /// Null when the application cannot be observed, which is logged.
  static std::shared_ptr<AccessibilityNotificationCollector> create(Accessibility& accessibility,
                                                                    MainRunLoop& mainRunLoop,
                                                                    ProcessIdentifier processID,
                                                                    CollectedAction collectedAction);
  ~AccessibilityNotificationCollector();

  /// Ends the observation. Gives the text change still held back, instead of reporting it.
  std::optional<Action> stop();

  /// Reports the text change held back, if there is one, at once. With `logUnchanged` the text of the focused element
  /// is reported even if it has not changed.
  void drainText(bool logUnchanged);

 private:
  AccessibilityNotificationCollector(MainRunLoop& mainRunLoop, ProcessIdentifier processID,
                                     CollectedAction collectedAction);

  bool observe(Accessibility& accessibility);
  void handle(const AXUIElement& element, std::string_view notification);
  void changedValue(const AXUIElement& element);
  void changedFocus(const AXUIElement& element);
  void follow(std::optional<FocusedElementData> focused);
  std::optional<Action> manuallyDrainText(bool logUnchanged);
  void debounceDrainText();
  void report(const std::optional<Action>& action);
  FocusedElementData* focused();

  void add(std::string_view notification, const AXUIElement& element);
  void remove(std::string_view notification, const AXUIElement& element);

  MainRunLoop& mainRunLoop_;
  ProcessIdentifier processID_;
  CollectedAction collectedAction_;
  std::unique_ptr<AXObserver> observer_;
  std::optional<FocusedElementData> focusedElementData_;
  std::unique_ptr<Debouncer> drainTextDebouncer_;
};

}  // namespace norra
