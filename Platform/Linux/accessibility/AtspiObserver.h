// The observer of one process: notifications made of the events of its applications on the accessibility bus.
//
// The core wants to be told which element has the focus, and when the element that it follows changes. Most
// applications tell of the focus as it moves. Where one does not, the focus is looked at again, each time twice as
// late, until it is sure. There are three such cases.
//
// It was found and not told: an application that only just learnt that somebody listens tells of the next change and
// not of the last one, so the element that has the focus is searched for, and the search may be too early.
//
// It was missed: the application was too busy to answer when it was asked.
//
// It is mute: it was told of and cannot be asked, since some toolkits announce elements before they exist on the bus.
// It is told to the core all the same, so that nothing that is typed into it is credited to the element before, and
// told again as soon as it answers.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/accessibility/FocusPicture.h"
#include "Platform/Linux/following/ElementWatch.h"
#include "Platform/Linux/following/FocusEvents.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

/// What observers share. Outlives them.
struct ObserverServices {
  AtspiSession& session;
  Focus& focus;
  const ElementHandles& handles;
  AtspiEvents& events;
  FocusEvents& focusEvents;
  FocusPicture& focusPicture;
  /// Makes noteInput be called for what the user does, until it is let go.
  std::function<std::unique_ptr<Registration>(std::function<void()> noteInput)> watchInput;
};

class AtspiObserver final : public AXObserver {
 public:
  AtspiObserver(ObserverServices& services, ProcessIdentifier process, AXObserverCallback callback);

  AXError addNotification(const AXUIElement& element, std::string_view notification) override;
  AXError removeNotification(const AXUIElement& element, std::string_view notification) override;
  void addSourceToMainRunLoop() override { isOnLoop_ = true; }
  void removeSourceFromMainRunLoop() override { isOnLoop_ = false; }

 private:
  AXError addFocus(std::string_view notification);
  AXError removeFocus(std::string_view notification);
  void focusArrived(const AtspiReference& element);
  void checkFocusLater(std::uint64_t microseconds);
  void checkFocus();
  bool answers(const AtspiReference& element) const;
  void tellFocusThatWasMute();
  bool tellFocusThatWasMissed();
  void tellFocus();
  void tellOfFocus();
  bool tellFocusOfChanged();
  void tell(const AXUIElement& element, std::string_view notification);
  void tellOf(const AtspiReference& element, std::string_view notification);
  bool isToldAsChange(const AtspiReference& element, std::string_view notification);
  ElementWatch* watchOf(const AtspiReference& element);
  ElementWatch& newWatch(const AtspiReference& element);
  void end(const AtspiReference& element);
  void updateInput();

  ObserverServices& services_;
  const ProcessIdentifier process_;
  const AXObserverCallback callback_;
  bool isOnLoop_ = false;
  AtspiReference focused_;  // the last that was told, at first that of the registration; null: none
  bool isOpen_ = false;     // the list of the combo box that has the focus
  bool isMute_ = false;     // it could not be asked when it was told
  std::vector<std::unique_ptr<ElementWatch>> watches_;
  std::vector<std::unique_ptr<ElementWatch>> ended_;  // they may be running
  DeferredRun focusChange_;
  DeferredRun lateFocusCheck_;
  std::uint64_t nextFocusCheck_ = 0;
  std::uint64_t timeOuts_ = 0;  // of all reads, when the focus was told last
  DeferredRun cleanUp_;
  std::unique_ptr<Registration> focusEvents_;
  std::unique_ptr<Registration> input_;
  std::unique_ptr<Registration> picture_;
};

}  // namespace norra::linux_desktop
