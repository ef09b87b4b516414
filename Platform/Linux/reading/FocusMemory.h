// Which element of one application has the keyboard focus, as its events said.
//
// There are two elements to remember. The one that events told of last has only arrived: it may be an item of a menu,
// or may not be there to be asked yet. The one that is followed was looked at and taken. Between them lies a burst of
// events, since toolkits tell of one change of the focus several times; so arrivals are only noted, and what they mean
// is decided when the burst is over.
#pragma once

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Any thread. References are null where there is none.
class FocusMemory {
 public:
  /// An event told of this one. What it is has not been looked at.
  void noteArrival(const AtspiReference& element);
  /// The last one that was told of.
  AtspiReference lastArrival() const;
  /// An event told that this one has lost the focus. Gives the one that was told of before and has not lost it since;
  /// null: there is none, or it was not the last one that was told of.
  AtspiReference noteLoss(const AtspiReference& element);
  /// Gives those that were told of and forgets them, so that each is looked at once; the last one last, and of many
  /// only the last few.
  std::vector<AtspiReference> takeArrivals();

  /// The one that is followed. Null: the application told of none yet.
  AtspiReference followed() const;
  /// The same, if the application told of it after this time.
  AtspiReference followedSince(std::chrono::steady_clock::time_point time) const;
  /// The one that was followed at this time, which is not long ago.
  AtspiReference followedAt(std::chrono::steady_clock::time_point time) const;
  void follow(const AtspiReference& element);

  /// The one that is followed was not told of but found to be focused, itself or an item of it. An application that
  /// only just learnt that it is listened to may have missed to tell of a change since.
  void followFound(const AtspiReference& element, const AtspiReference& focused);
  /// What was found to be focused. Null: the one that is followed was told of.
  AtspiReference found() const;

  /// The combo box whose list is open and has the focus; null: none. What is followed next ends it.
  void followOpen(const AtspiReference& comboBox);
  AtspiReference open() const { return copy(open_); }

 private:
  AtspiReference copy(const AtspiReference& reference) const;

  mutable std::mutex mutex_;
  // guarded by mutex_
  std::vector<AtspiReference> arrived_;
  AtspiReference lastArrived_;
  std::deque<AtspiReference> unlost_;  // the last one first
  std::chrono::steady_clock::time_point arrivedAt_;
  AtspiReference followed_;
  AtspiReference followedBefore_;
  std::chrono::steady_clock::time_point followedFrom_;
  AtspiReference found_;
  AtspiReference open_;
};

}  // namespace norra::linux_desktop
