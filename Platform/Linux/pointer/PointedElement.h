// Which element lies under a point of the screen.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/pointer/PointedAt.h"
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

  /// A button was pressed.
  void notePress() { pressTime_ = std::chrono::steady_clock::now(); }
  /// The same of a place where a button is pressed, as long as it is: what is highlighted there stays so, since the
  /// click is not over, and lists that are open only now are looked into.
  AtspiReference atPress(CGPoint place);
  /// Whether what was found at the pressed place is only what the application guessed to lie there, and finds out.
  bool isGuess(const AtspiReference& pressed);
  /// Whether it has gone since from the area that it was in, or opens what may lie above it now. Asks it anew. Its area
  /// need not contain the pressed place: a press on a label is one on its field.
  bool hasActed(const AtspiReference& pressed, const std::optional<AtspiRectangle>& area);

  /// Finds out which top-level accessible the active window is, if it is not known, so that a press in it need not.
  void prepare();

  /// Where on the screen the control is that the pressed element is part of, or the element itself. Nothing: it does
  /// not say.
  std::optional<AtspiRectangle> areaOf(const AtspiReference& pressed);
  /// Whether another pop-up than what was pressed lies at the released place now.
  bool isCovered(CGPoint pressed, CGPoint released);

  /// The top-level accessible that the window was found to belong to; null: none was, or the window is a pop-up.
  AtspiReference knownTopLevelOf(const WindowOnScreen& window) const { return topLevels_.find(window); }

 private:
  ElementView view(const AtspiReference& element) { return {session_.reader(), element}; }
  struct FoundTopLevel {
    AtspiReference reference;  // null: none was
    OwnPixels pixels;
  };
  FoundTopLevel findTopLevel(const WindowOnScreen& window);
  FoundTopLevel knownTopLevel(const WindowOnScreen& window);
  AtspiReference hitTestBelow(const FoundTopLevel& topLevel, PointedAt at);
  AtspiReference comboBoxThatOpens(const AtspiReference& hit);
  AtspiReference optionAt(const std::string& busName, CGPoint point);
  AtspiReference elementIn(const PointedAt& at);
  AtspiReference optionOfPage(const WindowOnScreen& window, CGPoint point);
  AtspiReference controlAround(const AtspiReference& pressed);
  AtspiReference noted(AtspiReference found);
  AtspiReference lastNoted();
  bool wasDraggedTo(const AtspiReference& released, CGPoint point);
  void noteMissing(const WindowOnScreen& window);
  std::string whyNothing(const std::optional<WindowOnScreen>& window);

  AtspiSession& session_;
  Focus& focus_;
  WindowsOnScreen& windows_;
  KnownTopLevels topLevels_;
  std::atomic<std::chrono::steady_clock::time_point> pressTime_{};
  std::mutex mutex_;
  // guarded by mutex_
  std::set<ProcessIdentifier> missing_;
  AtspiReference lastNoted_;
};

}  // namespace norra::linux_desktop
