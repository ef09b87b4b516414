// Mouse clicks and key presses as actions.
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
