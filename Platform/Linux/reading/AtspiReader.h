// Reads facts about elements for one thread.
//
// A call to an application costs a round trip through the bus and through the application's main loop, a tenth of a
// millisecond at best and a frame when it paints. A click needs some forty facts of some ten elements; asked one after
// the other they would take long enough for a person to notice. Three things keep that from happening.
//
// A wave: whatever is missing at one moment is sent together and awaited together, so that twenty questions take as
// long as the slowest of them. The number of waves, and not that of the calls, is what a click costs.
//
// The path: the element under the pointer and those above it. The core climbs from the one to the others, so when one
// of them is asked, what the core will want of the next ones is asked in the same wave, by the parents that they had
// when they were last seen. A guess that is wrong costs an answer that nobody needs; it never decides anything.
//
// An epoch: the handling of one event (ReadingEpoch.h). What was read in it is not read again, so all decisions about
// one click are made from one state of the application; what another event finds is asked anew.
//
// Some facts are kept beyond their epoch: of the element that is followed, for the time in which its application does
// not answer, and of one that may go with the click that is being looked at. They are used only where the element
// itself says nothing, and say so (AtspiFacts::isFormer).
//
// All waves of one event together wait for a bounded time. What has not come by then is absent.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Platform/Linux/atspi/AtspiConnection.h"
#include "Platform/Linux/reading/AtspiApplication.h"
#include "Platform/Linux/reading/AtspiFacts.h"
#include "Platform/Linux/reading/ReadingEpoch.h"

namespace norra::linux_desktop {

/// What is known of elements; a value that one reader may take over from another.
using AtspiFactsByElement = std::unordered_map<AtspiReference, AtspiFacts, AtspiReferenceHash>;

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

  /// For a thread that handles no events: while this exists, all that is read belongs together, and it begins anew.
  class Reading {
   public:
    explicit Reading(AtspiReader& reader) : reader_(reader) {
      reader_.forget();
      reader_.isHeld_ = true;
    }
    ~Reading() { reader_.isHeld_ = false; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

   private:
    AtspiReader& reader_;
  };

  /// The facts of an element, with these among them. Valid until the next enter().
  const AtspiFacts& read(const AtspiReference& element, Asks asks);
  /// The same for several elements in one wave, in which other calls travel too; their answers in their order.
  std::vector<AtspiReply> read(std::span<const AtspiQuestion> questions, std::vector<AtspiCall> calls = {});
  /// What is known already.
  const AtspiFacts& known(const AtspiReference& element) { return facts_[element]; }
  const AtspiFactsByElement& allKnown() const { return facts_; }
  /// Goes on, in this event, from what another reader has read; what this one knows of an element already stands.
  void takeOver(AtspiFactsByElement facts) { facts_.merge(facts); }
  /// What it says may be another by now, although it was asked in this event.
  void askAnew(const AtspiReference& element) { facts_.erase(element); }
  /// Will be asked together with the next question that has to be asked; nothing is asked for it alone.
  void expect(const AtspiReference& element, Asks asks) { expected_.push_back({element, asks}); }
  /// States the parent of an element, as learnt on the way down to it.
  void noteParent(const AtspiReference& element, const AtspiReference& parent);

  /// For when the element does not answer; or also when it has gone.
  enum class KeptFor : std::uint8_t { silence, silenceAndEnd };
  /// What is known of an element now is what is read of it then.
  void keep(const AtspiReference& element, KeptFor purpose);

  /// Elements whose ancestors are sure to be asked for soon: the one under the pointer and those above it.
  void notePath(const AtspiReference& element) { path_.insert(element); }
  bool isOnPath(const AtspiReference& element) const { return path_.contains(element); }
  /// The parent, if it is known, else the one that it had when it was last asked for. Null: no idea.
  AtspiReference likelyParent(const AtspiReference& element) const;
  /// The role in the same way. Nothing: no idea.
  std::optional<AtspiRole> likelyRole(const AtspiReference& element) const;

  /// The element that the event is about: the one under the pointer. It is where the path begins. Null: none.
  void notePointed(const AtspiReference& element);
  const AtspiReference& pointed() const { return pointed_; }

  /// While this exists, the element holds what it held before; for who begins to follow it only now.
  class Before {
   public:
    Before(AtspiReader& reader, const AtspiReference& element, AXAttributeValue value) : reader_(reader) {
      reader_.before_ = {element, std::move(value)};
    }
    ~Before() { reader_.before_ = {}; }
    Before(const Before&) = delete;
    Before& operator=(const Before&) = delete;

   private:
    AtspiReader& reader_;
  };
  const AXAttributeValue* valueBefore(const AtspiReference& element) const {
    return !element.isNull() && before_.first == element ? &before_.second : nullptr;
  }

  /// Other calls; see AtspiConnection::exchange.
  std::vector<AtspiReply> exchange(std::span<const AtspiCall> calls) { return connection_.exchange(calls, deadline()); }
  AtspiReply call(AtspiCall call);

  /// What is known of the application that has the element; asked for at the first time. Never null.
  std::shared_ptr<AtspiApplication> application(const AtspiReference& element);

 private:
  void forget();
  TimePoint deadline();
  struct Kept {
    AtspiFacts facts;
    KeptFor purpose = KeptFor::silence;
  };
  struct Asking {
    AtspiReference element;
    Ask ask;
  };
  Asks missing(const AtspiQuestion& question);
  const Toolkit& toolkitOf(const AtspiReference& element) const;
  bool mayBeVague(const AtspiReference& element) const;
  void correctRole(const AtspiReference& element);
  std::vector<Asking> open(std::span<const AtspiQuestion> questions);
  void take(const Asking& asking, const AtspiReply& reply);
  void restoreIfSilent(const AtspiReference& element);
  struct Former {
    AtspiReference parent;
    std::optional<AtspiRole> role;
    bool isVague = false;
  };
  Former& formerOf(const AtspiReference& element);

  AtspiConnection connection_;
  AtspiApplications& applications_;
  const ReadingEpoch& epoch_;

  std::optional<std::uint64_t> currentEpoch_;
  std::uint64_t generation_ = 0;           // of the bus
  TimePoint deadline_ = TimePoint::min();  // of this epoch; min: nothing was read in it
  bool isHeld_ = false;
  AtspiFactsByElement facts_;
  std::pair<AtspiReference, AXAttributeValue> before_;
  std::vector<AtspiQuestion> expected_;
  std::unordered_set<AtspiReference, AtspiReferenceHash> path_;
  AtspiReference pointed_;

  // Of all epochs: of elements that may go, and a mere hint of what to ask for.
  std::unordered_map<AtspiReference, Kept, AtspiReferenceHash> kept_;
  std::unordered_map<AtspiReference, Former, AtspiReferenceHash> former_;
};

}  // namespace norra::linux_desktop
