// The events that tell of the keyboard focus, for all who follow an application.
//
// One change of the focus is told by several events, in an order that differs between toolkits: the element loses it,
// the window gets it, the element gets it, the item in it becomes the active one. Nothing is decided on the first of
// them. Arrivals are noted, and the last one is looked at when the burst is over.
//
// Some toolkits tell only that an element lost the focus where a compound one gets it (a search field). Then, until the
// application tells of the focus again, it is listened to where its caret moves. Main thread.
#pragma once

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "Platform/Linux/atspi/AtspiEvents.h"
#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

class FocusEvents {
 public:
  using Listener = std::function<void(const AtspiReference& element)>;

  /// Both must outlive this.
  FocusEvents(Focus& focus, AtspiEvents& events);

  /// Tells of every element of any application that gets the focus, as its toolkit says it: several times perhaps.
  /// Right after, when the burst is over, the element is looked at. Until the result, which
  /// must not outlive this, is let go.
  [[nodiscard]] std::unique_ptr<Registration> listen(Listener listener);

 private:
  class Handle;
  void arrived(const AtspiEvent& event);
  void left(const AtspiReference& element);
  void tell(const AtspiReference& element);
  void settleArrivals();
  void findUntold();

  Focus& focus_;
  AtspiEvents& events_;
  std::list<Listener> listeners_;
  std::set<std::string> unsettled_;  // bus names
  DeferredRun settling_;
  std::unique_ptr<Registration> subscription_;                   // while there are listeners
  std::map<std::string, std::unique_ptr<Registration>> carets_;  // by bus name, where the focus was lost
  std::map<std::string, AtspiReference> written_;                // where the caret moved last
};

}  // namespace norra::linux_desktop
