// The window that a person works in, as applications say it of their own on the accessibility bus.
//
// Toolkits tell of it with more events than there are changes: of a window that is about to be left, of a pop-up that
// opens and closes, of items that are active in a list. So an event says only where to look. When a burst of them is
// over the top-levels that were told of are asked, and the last one that calls itself active is. One that is too busy
// to answer is asked again.
//
// An application that has just started may have told before it knew that anybody listens. So for a while after a
// program came onto the bus all top-levels are looked at.
#pragma once

#include <chrono>
#include <mutex>
#include <vector>

#include "Platform/Linux/atspi/AtspiEvents.h"
#include "Platform/Linux/display/DisplayServer.h"
#include "Platform/Linux/reading/AtspiSession.h"
#include "Platform/Linux/runtime/DeferredRun.h"

namespace norra::linux_desktop {

class AtspiActiveTopLevels final : public ActiveTopLevels {
 public:
  /// Both must outlive this.
  AtspiActiveTopLevels(AtspiSession& session, AtspiEvents& events);

  std::optional<ActiveTopLevel> active() override;
  std::unique_ptr<Registration> follow(std::function<void()> changed) override;

 private:
  using TimePoint = std::chrono::steady_clock::time_point;
  class Following;
  enum class Answer : std::uint8_t { active, inactive, none };

  void told(const AtspiEvent& event);
  void settle();
  void lookAround();
  void lookAroundLater(std::uint64_t microseconds);
  void askAgain();
  Answer answerOf(const AtspiReference& topLevel);
  void readAll(const std::vector<AtspiReference>& topLevels);
  AtspiReference lastActive(const std::vector<AtspiReference>& topLevels);
  std::vector<AtspiReference> allTopLevels();
  AtspiReference search();
  AtspiReference current() const;
  bool setCurrent(const AtspiReference& topLevel);
  std::optional<ActiveTopLevel> describe(const AtspiReference& topLevel);

  AtspiSession& session_;
  AtspiEvents& events_;

  // Main thread only.
  std::function<void()> changed_;
  std::vector<AtspiReference> told_;  // the last one last
  int checksLeft_ = 0;
  std::uint64_t nextLook_ = 0;
  DeferredRun settling_;
  DeferredRun looking_;

  mutable std::mutex mutex_;
  AtspiReference current_;    // guarded by mutex_; null: none
  TimePoint searchedLately_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
