// Which element lies under a point of the screen.
#pragma once

#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/pointer/PressedElement.h"
#include "Platform/Linux/pointer/TopLevels.h"

namespace norra::linux_desktop {

/// Any thread.
class PointedElement {
 public:
  /// All must outlive this.
  PointedElement(AtspiSession& session, Focus& focus, WindowsOnScreen& windows);

  /// The deepest element under a point; null: none that can be known. The window under the point decides the
  /// application. What it takes does not depend on how many elements the application has. Where there is none, the log
  /// says why.
  AtspiReference at(CGPoint point);

  /// A press may open a list, and a release may close one: browsers find nothing in or below a list that is open, and
  /// answer for a place only when they are asked again. To be called for every press of a button that clicks; only
  /// such applications, and those whose pop-ups cannot be told apart, are asked. Nothing: it is not known where the
  /// pointer is.
  void notePress(std::optional<CGPoint> place);

  /// The top-level accessible that the window was found to belong to; null: none was, or the window is a pop-up.
  AtspiReference knownTopLevelOf(const WindowOnScreen& window) const { return topLevels_.find(window); }

 private:
  ElementView view(const AtspiReference& element) { return {session_.reader(), element}; }
  PointedAt pointedAt(CGPoint point, const WindowOnScreen& window, const std::string& busName);
  AtspiReference findTopLevel(const WindowOnScreen& window);
  AtspiReference hitTestBelow(const AtspiReference& topLevel, CGPoint point, const WindowOnScreen& window);
  AtspiReference comboBoxThatOpens(const AtspiReference& hit);
  AtspiReference optionAt(const std::string& busName, CGPoint point);
  AtspiReference elementIn(const WindowOnScreen& window, CGPoint point);
  AtspiReference pressedInBrowser(const WindowOnScreen& window, CGPoint point);
  AtspiReference pressedElement(const WindowOnScreen& window, CGPoint point);
  void noteMissing(const WindowOnScreen& window);
  std::string whyNothing(const std::optional<WindowOnScreen>& window);

  AtspiSession& session_;
  Focus& focus_;
  WindowsOnScreen& windows_;
  KnownTopLevels topLevels_;
  PressedElement pressed_;
  std::mutex mutex_;
  std::set<ProcessIdentifier> missing_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
