// Reads facts about elements for one thread. What was read while an event is handled is not read again, and all that is
// missing is asked in one wave.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Platform/Linux/AtspiApplications.h"
#include "Platform/Linux/AtspiConnection.h"
#include "Platform/Linux/AtspiFacts.h"
#include "Platform/Linux/ReadingEpoch.h"

namespace norra::linux_desktop {

/// An element and what is asked of it.
struct AtspiQuestion {
  AtspiReference element;
  Asks asks;
};

class AtspiReader {
 public:
  using TimePoint = AtspiConnection::TimePoint;

  /// The longest that all waves of one event wait together.
  static constexpr std::chrono::milliseconds budget{1000};

  AtspiReader(AtspiShared& shared, AtspiApplications& applications, const ReadingEpoch& epoch)
      : connection_(shared), applications_(applications), epoch_(epoch) {}
  AtspiReader(const AtspiReader&) = delete;
  AtspiReader& operator=(const AtspiReader&) = delete;

  /// To be called at the door: forgets what was read for another event.
  void enter();

  /// The facts of an element, with these among them. Valid until the next enter().
  const AtspiFacts& read(const AtspiReference& element, Asks asks);
  /// The same for several elements in one wave.
  void read(std::span<const AtspiQuestion> questions);
  /// What is known already.
  const AtspiFacts& known(const AtspiReference& element) { return facts_[element]; }
  /// Will be asked together with the next question that has to be asked; nothing is asked for it alone.
  void expect(const AtspiReference& element, Asks asks) { expected_.push_back({element, asks}); }
  /// States the parent of an element, as learnt on the way down to it.
  void noteParent(const AtspiReference& element, const AtspiReference& parent);

  /// Elements whose ancestors are sure to be asked for soon: the one under the pointer and those above it.
  void notePath(const AtspiReference& element) { path_.insert(element); }
  bool isOnPath(const AtspiReference& element) const { return path_.contains(element); }
  /// The parent, if it is known, else the one that it had when it was last asked for. Null: no idea.
  AtspiReference likelyParent(const AtspiReference& element) const;

  /// Elements that were found to hold radio buttons.
  void noteRadioGroup(const AtspiReference& element) { radioGroups_.insert(element); }
  bool isRadioGroup(const AtspiReference& element) const { return radioGroups_.contains(element); }

  /// Other calls; see AtspiConnection::exchange.
  std::vector<AtspiReply> exchange(std::span<const AtspiCall> calls) { return connection_.exchange(calls, deadline()); }
  AtspiReply call(AtspiCall call);

  /// What is known of the application that has the element; asked for at the first time. Never null.
  std::shared_ptr<AtspiApplication> application(const AtspiReference& element);

 private:
  TimePoint deadline();
  Asks missing(const AtspiQuestion& question);
  void take(const AtspiQuestion& question, Ask ask, const AtspiReply& reply);
  void rememberParent(const AtspiReference& element, const AtspiReference& parent);

  AtspiConnection connection_;
  AtspiApplications& applications_;
  const ReadingEpoch& epoch_;

  std::optional<std::uint64_t> currentEpoch_;
  TimePoint deadline_ = TimePoint::min();  // of this epoch; min: nothing was read in it
  std::unordered_map<AtspiReference, AtspiFacts, AtspiReferenceHash> facts_;
  std::vector<AtspiQuestion> expected_;
  std::unordered_set<AtspiReference, AtspiReferenceHash> path_;
  std::unordered_set<AtspiReference, AtspiReferenceHash> radioGroups_;

  // Of all epochs; only a hint of what to ask for.
  std::unordered_map<AtspiReference, AtspiReference, AtspiReferenceHash> formerParents_;
};

}  // namespace norra::linux_desktop
