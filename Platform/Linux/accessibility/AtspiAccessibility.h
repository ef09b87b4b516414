// The accessibility of the real desktop.
#pragma once

#include <memory>

#include "NorraUserInteractionsCollectorServiceProtocol/ServiceStatistics.h"
#include "Platform/Accessibility.h"
#include "Platform/EventTap.h"
#include "Platform/Linux/accessibility/AtspiActiveTopLevels.h"
#include "Platform/Linux/accessibility/AtspiObserver.h"
#include "Platform/Linux/accessibility/FocusPicture.h"
#include "Platform/Linux/accessibility/PressPictures.h"
#include "Platform/Linux/atspi/AccessibilitySwitch.h"
#include "Platform/Linux/reading/ReadingEpoch.h"

namespace norra::linux_desktop {

/// Made on the main thread. Elements and observers that it gives must not be used after it has gone.
class AtspiAccessibility final : public Accessibility {
 public:
  /// `event` is the loop of the main thread; `eventTaps` are asked for input while an element is followed that changes
  /// without an event. All must outlive this.
  AtspiAccessibility(sd_event* event, WindowsOnScreen& windows, EventTaps& eventTaps, Rehearsals rehearsals);

  AXUIElement createSystemWide() override { return handles_.systemWide(pictures_); }
  AXUIElement createApplication(ProcessIdentifier process) override { return handles_.application(process); }
  AXResult<std::unique_ptr<AXObserver>> createObserver(ProcessIdentifier process, AXObserverCallback callback) override;

  /// As applications call them active.
  ActiveTopLevels& activeTopLevels() { return activeTopLevels_; }

  /// Whether the element with the keyboard focus is known to be a field with a hidden text. Reads nothing. Main thread.
  bool isSecretFocused();

  /// A button that clicks was pressed, or released (see PressPictures). Main thread.
  void notePress(std::optional<CGPoint> place);
  void noteRelease();
  /// Another window is active. Main thread.
  void noteActivation() { pressPictures_.noteActivation(); }

  /// What reading has cost so far, and whether it is possible. Any thread.
  void describe(ServiceStatistics& statistics);

 private:
  std::unique_ptr<Registration> watchInput(std::function<void()> noteInput);

  AccessibilitySwitch switch_;
  EventTaps& eventTaps_;
  const EventLoopEpoch epoch_;
  WindowsOnScreen& windows_;
  AtspiSession session_;
  Focus focus_;
  PointedElement pointed_;
  const ElementHandles handles_;
  PressPictures pressPictures_;
  AtspiEvents events_;
  AtspiActiveTopLevels activeTopLevels_;
  FocusEvents focusEvents_;
  FocusPicture focusPicture_;
  const Pictures pictures_{&pressPictures_, &focusPicture_};
  ObserverServices services_;
};

}  // namespace norra::linux_desktop
