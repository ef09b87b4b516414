// Which element of each application has the keyboard focus, as its events said.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// Any thread.
class FocusMemory {
 public:
  /// An event told of this one. What it is has not been looked at.
  void noteArrival(const AtspiReference& element);
  /// The last one that was told of. Null: none was.
  AtspiReference lastArrival(std::string_view busName) const;
  /// The same; once.
  std::optional<AtspiReference> takeArrival(std::string_view busName);

  /// The one that is followed. Nothing: the application told of none yet.
  std::optional<AtspiReference> followed(std::string_view busName) const;
  void follow(const AtspiReference& element);

  /// The one that is followed was not told of but found to be focused, itself or an item of it. An application that
  /// only just learnt that it is listened to may have missed to tell of a change since.
  void followFound(const AtspiReference& element, const AtspiReference& focused);
  /// What was found to be focused. Nothing: the one that is followed was told of.
  std::optional<AtspiReference> found(std::string_view busName) const;

  void forget(std::string_view busName);
  void clear();

 private:
  struct Paths {
    std::optional<std::string> arrived;
    std::optional<std::string> lastArrived;
    std::optional<std::string> followed;
    std::optional<std::string> found;
  };
  std::optional<AtspiReference> find(std::string_view busName, std::optional<std::string> Paths::*path) const;

  mutable std::mutex mutex_;
  std::map<std::string, Paths, std::less<>> applications_;  // by bus name; guarded by mutex_
};

}  // namespace norra::linux_desktop
