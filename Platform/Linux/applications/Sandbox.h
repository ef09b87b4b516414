// Sandboxed applications talk to the bus through a proxy, whose process is not theirs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

/// The sandboxed application that a control group belongs to, as /proc/PID/cgroup writes it; nothing: none.
std::optional<std::string> sandboxedApplication(std::string_view controlGroups);

/// Whether `peer` is the proxy through which the sandboxed application of `process` talks.
bool isSandboxOf(ProcessIdentifier peer, ProcessIdentifier process);

}  // namespace norra::linux_desktop
