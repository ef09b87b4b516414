// What a fleet adds to each report, so that whoever reads a stream sees what is missing in it and what came twice.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace norra::fleet {

/// A name that no other session has: a random UUID.
std::string newSessionIdentifier();

/// The line's members, then `session` and `sequence`. Nothing for a line that is no JSON object.
std::optional<std::string> stampedReport(const std::string& line, const std::string& session, std::uint64_t sequence);

/// For the topic of a desktop's state; `sequence` is that of the session's last report, where it is known.
std::string stateText(const std::string& state, const std::string& session, std::optional<std::uint64_t> sequence = {});

}  // namespace norra::fleet
