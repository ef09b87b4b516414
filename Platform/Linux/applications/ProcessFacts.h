// What the system tells of a process of this machine.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

/// When the process started, in ticks since the machine did; tells a process from a later one with the same identifier.
/// Nothing: there is no such process, or it has ended.
std::optional<std::uint64_t> startTimeOf(ProcessIdentifier process);

/// Nothing: it may not be known.
std::optional<std::filesystem::path> executableOf(ProcessIdentifier process);

/// Empty where it is not known.
std::filesystem::path workingFolderOf(ProcessIdentifier process);

/// Empty: there are none or they may not be known.
std::vector<std::string> argumentsOf(ProcessIdentifier process);

/// The name of the desktop file that the process's Flatpak or Snap sandbox belongs to; empty where it has none.
std::string sandboxIdentifierOf(ProcessIdentifier process);

/// The sandboxed application that a control group belongs to, as /proc/PID/cgroup writes it; nothing: none.
std::optional<std::string> sandboxedApplication(std::string_view controlGroups);

/// Whether `peer` is the proxy through which the sandboxed application of `process` talks to the bus.
bool isSandboxOf(ProcessIdentifier peer, ProcessIdentifier process);

}  // namespace norra::linux_desktop
