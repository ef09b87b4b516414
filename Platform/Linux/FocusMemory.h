// Which element of each application had the keyboard focus last, as its events said.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Linux/AtspiReference.h"

namespace norra::linux_desktop {

/// Any thread.
class FocusMemory {
 public:
  /// Nothing: the application told of no focus yet.
  std::optional<AtspiReference> focused(std::string_view busName) const;
  void noteFocus(const AtspiReference& element);
  /// The element lost the focus; nothing happens if another has it already.
  void noteLoss(const AtspiReference& element);
  void forget(std::string_view busName);

 private:
  mutable std::mutex mutex_;
  std::map<std::string, std::string, std::less<>> paths_;  // by bus name; guarded by mutex_
};

}  // namespace norra::linux_desktop
