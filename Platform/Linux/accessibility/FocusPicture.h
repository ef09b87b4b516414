// The picture of the element that has the keyboard focus. A key reaches its application at the same time as the
// service, and the application may be quicker: so what a key press is told by is asked when the element gets the focus,
// and again when it says that it is called otherwise, or when the user did something that may have changed it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Platform/Linux/accessibility/ElementHandles.h"
#include "Platform/Linux/accessibility/Picture.h"
#include "Platform/Linux/atspi/AtspiEvents.h"
#include "Platform/Linux/display/WindowsOnScreen.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

/// Main thread.
class FocusPicture {
 public:
  /// All references must outlive this. `rehearse` empty: no pictures are taken.
  FocusPicture(AtspiSession& session, const ElementHandles& handles, AtspiEvents& events, KeyRehearsal rehearse);

  /// There is a picture, and the application is listened to for it, as long as somebody holds one of these, which must
  /// not outlive this.
  [[nodiscard]] std::unique_ptr<Registration> use();

  /// The element has the focus; null: none has. It is asked what a key in it is told by. If it does not say, the
  /// picture that there is of it stays.
  void take(const AtspiReference& focused);
  /// The core was told that the value of the element changed, and has read it.
  void noteValue(const AtspiReference& element);
  /// The user pressed a key or clicked.
  void noteInput();

  /// The element, as it was before the application acted on what the user does now. Nothing: it is not known. Reads
  /// nothing.
  std::optional<AXUIElement> of(const AtspiReference& focused);
  /// Of which there is, or will be, a picture; null: of none.
  const AtspiReference& focused() const { return focused_; }

 private:
  class Use;
  void follow(const AtspiReference& focused);
  void takeIfRenamed();
  void endUse();

  AtspiSession& session_;
  const ElementHandles& handles_;
  AtspiEvents& events_;
  const KeyRehearsal rehearse_;
  int uses_ = 0;
  AtspiReference focused_;
  std::shared_ptr<Picture> picture_;    // null: the element has not answered
  std::optional<AXUIElement> element_;  // as it shows it
  std::string name_;                    // of a control, that it gave itself; else empty
  bool mayBeCalledOtherwiseUntold_ = false;
  std::unique_ptr<Registration> names_;
  DeferredRun change_;
};

}  // namespace norra::linux_desktop
