// The messages of a desktop: the topics that they go to (desktops/HOST/USER/LEAF), and what is added to each report, so
// that whoever reads a stream sees what is missing in it and what came twice.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace norra::fleet {

/// A name that no other session has: a random UUID.
std::string newSessionIdentifier();

/// The line's members, then `session` and `sequence`. Nothing for a line that is no JSON object.
std::optional<std::string> stampedReport(const std::string& line, const std::string& session, std::uint64_t sequence);

/// For the topic of a desktop's state; `sequence` is that of the session's last report, where it is known.
std::string stateText(const std::string& state, const std::string& session, std::optional<std::uint64_t> sequence = {});

struct Desktop {
  std::string host;
  std::string user;
};

/// This machine and the user of this process.
Desktop thisDesktop();

/// Whatever a name holds, it is one level of the topic: what MQTT gives a meaning to (/ + # and control characters) and
/// % are percent-encoded.
std::string topicOf(const Desktop& desktop, std::string_view leaf);

}  // namespace norra::fleet
