// Follows one application: its focused element, what is typed and set there, and what is selected.
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
