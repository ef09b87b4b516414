// Mouse clicks and key presses as actions.
//
// A click counts when the button is let go, and where: whoever presses, drags away and lets go elsewhere has not
// clicked what was pressed. What it means is read from the element at that place. If that means nothing yet, there is
// one more look, since some applications have not done with the click when the event is seen, and a check box tells its
// new state only then. The second look keeps the place and not the element, which may be another by now.
//
// A key belongs to the element that has the keyboard focus. Only what is no plain typing is reported: special keys, and
// characters together with a modifier that makes them a shortcut. Of plain typing nothing is kept but which process it
// went to; the text that it makes is reported by the accessibility collector, as one change. Return is the exception in
// between: forms are sent with it and chat lines disappear, so the text typed so far is reported before the key.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "NorraDataCollector/accessibility/AccessibilityNotificationCollector.h"
#include "NorraDataCollector/model/Action.h"
#include "Platform/Platform.h"

namespace norra {

/// Watches releases of mouse buttons and key presses, and never changes one. Belongs to the main thread, the link to
/// the accessibility collector excepted.
class TapEventsCollector {
 public:
  /// Receives an action and the process that it belongs to (0: unknown). `undefined` tells of no action, but of where
  /// the keyboard focus is. Main thread.
  using CollectedAction = std::function<void(const Action&, ProcessIdentifier)>;

  /// Null when input cannot be observed, which is logged.
  static std::unique_ptr<TapEventsCollector> create(const Platform& platform, CollectedAction collectedAction);
  ~TapEventsCollector();

  /// The collector of the followed application, whose pending text is reported before a Return key. Any thread.
  void setAccessibilityNotificationCollector(std::weak_ptr<AccessibilityNotificationCollector> collector) {
    accessibilityNotificationCollector_ = std::move(collector);
  }

 private:
  TapEventsCollector(const Platform& platform, CollectedAction collectedAction);

  void handle(const CGEvent& event);
  void handleClick(const CGEvent& event);
  void handleKey(const CGEvent& event);
  void drainTextBefore(const NSEvent& key);

  Platform platform_;
  CollectedAction collectedAction_;
  std::unique_ptr<EventTap> eventTap_;
  std::atomic<std::weak_ptr<AccessibilityNotificationCollector>> accessibilityNotificationCollector_;
};

}  // namespace norra
