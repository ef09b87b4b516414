// Changes of one element's value and selection, as its events and the user's input tell of them.
//
// The events of one change come in bursts: typing one letter may delete a text and insert another. So they are
// gathered, and each notification is given once when a burst is over. Some elements are silent: they change without any
// event (sliders of some toolkits). Their values are looked at after whatever the user did, and only another value
// counts.
//
// A field may turn into one for passwords while it is followed. Then the focus is told anew before the value is, so
// that the core looks at the element again and masks what it reads. Main thread.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Linux/atspi/AtspiEvents.h"
#include "Platform/Linux/reading/AtspiSession.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

class ElementWatch {
 public:
  /// `changed` is called, whenever a burst of events is over, with the name of each notification that is due.
  ElementWatch(AtspiSession& session, AtspiEvents& events, AtspiReference element,
               std::function<void(std::string_view notification)> changed);
  ElementWatch(const ElementWatch&) = delete;
  ElementWatch& operator=(const ElementWatch&) = delete;

  const AtspiReference& element() const { return element_; }
  std::chrono::steady_clock::time_point since() const { return since_; }

  /// Begins, or ends, to listen to what this notification needs; one that is not known needs nothing.
  void want(std::string_view notification);
  void unwant(std::string_view notification);
  bool isWanted(std::string_view notification) const;
  bool isIdle() const { return wanted_.empty(); }

  /// The element is about to be left: what it holds now is told, if it may have changed.
  void settle();
  /// The user did something that may change a value without an event.
  void noteInput();
  /// Whether noteInput is of use.
  bool needsInput() const { return isSilent_; }

 private:
  using Registrations = std::vector<std::unique_ptr<Registration>>;

  void listenToValue();
  void listenToSelection();
  void noteChangedItems();
  void tellChanges();
  bool isValueNew();
  void tell(std::string_view notification);

  AtspiSession& session_;
  AtspiEvents& events_;
  const AtspiReference element_;
  const std::chrono::steady_clock::time_point since_ = std::chrono::steady_clock::now();
  const std::function<void(std::string_view)> changed_;
  std::vector<std::string> wanted_;
  Registrations valueEvents_;
  Registrations selectionEvents_;
  bool isSilent_ = false;
  bool isLeftByTyping_ = false;
  bool wasHidden_ = false;
  std::size_t fingerprint_ = 0;  // of a silent value
  bool isValueDue_ = false;
  bool isSelectionDue_ = false;
  std::vector<AtspiReference> changedItems_;
  DeferredRun changes_;
};

}  // namespace norra::linux_desktop
