// The way to the applications on the accessibility bus, and what is known of each of them.
//
// What one application said lives in one record under its bus name (AtspiApplication.h). A name belongs to one program
// and is never given again, so when it leaves the bus the record goes, and nothing that was learnt of one program is
// believed of another.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "Platform/Linux/reading/AtspiProcesses.h"
#include "Platform/Linux/reading/AtspiReader.h"

namespace norra::linux_desktop {

/// Outlives all that reads. Any thread.
class AtspiSession {
 public:
  /// `epoch` must outlive this.
  AtspiSession(const ReadingEpoch& epoch, ToolkitLookup toolkitOf);
  AtspiSession(const AtspiSession&) = delete;
  AtspiSession& operator=(const AtspiSession&) = delete;

  /// The calling thread's reader, for the event that is handled.
  AtspiReader& reader();

  /// The name has left the bus.
  void forget(const std::string& busName);

  AtspiShared shared;
  AtspiApplications applications;
  AtspiProcesses processes;

 private:
  void forgetAll();

  const ReadingEpoch& epoch_;
  std::mutex mutex_;
  std::map<std::thread::id, std::unique_ptr<AtspiReader>> readers_;  // guarded by mutex_
};

}  // namespace norra::linux_desktop
