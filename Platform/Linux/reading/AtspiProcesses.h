// From processes to what they have on the accessibility bus. The display server knows windows by their process, the bus
// knows programs by their names, and sandboxes stand in between with names of their own.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

class AtspiReader;

/// Any thread. All names on the accessibility bus are looked at, since some applications are not among the children of
/// its registry.
class AtspiProcesses {
 public:
  /// The bus names of a process, those of the proxy of its sandbox among them; empty: it is not on the bus.
  std::vector<std::string> busNamesOf(ProcessIdentifier process, AtspiReader& reader);

  /// The root of the process that has children; null if it has none.
  AtspiReference rootOf(ProcessIdentifier process, AtspiReader& reader);

  /// The process that the peer with this bus name stands for; 0 where it is not known.
  ProcessIdentifier processOf(const std::string& busName, AtspiReader& reader);

  /// A part of an application lives in a process of its own: its elements lie below those of the whole.
  void adopt(const std::string& part, const std::string& whole);

  void clear();

 private:
  std::vector<std::string> knownNamesOf(ProcessIdentifier process) const;
  void adoptProxyOf(ProcessIdentifier process);
  void lookAtNames(AtspiReader& reader);

  mutable std::mutex mutex_;
  std::map<std::string, ProcessIdentifier> processes_;  // by unique bus name, which a bus never gives again; guarded
};

}  // namespace norra::linux_desktop
