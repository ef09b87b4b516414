#include "Fleet/StampedReport.h"

#include <systemd/sd-id128.h>

#include <array>
#include <nlohmann/json.hpp>

namespace norra::fleet {

using nlohmann::ordered_json;

std::string newSessionIdentifier() {
  sd_id128_t identifier{};
  sd_id128_randomize(&identifier);
  std::array<char, SD_ID128_UUID_STRING_MAX> text{};
  return sd_id128_to_uuid_string(identifier, text.data());
}

std::optional<std::string> stampedReport(const std::string& line, const std::string& session, std::uint64_t sequence) {
  auto members = ordered_json::parse(line, nullptr, false);
  if (!members.is_object()) return std::nullopt;
  members["session"] = session;
  members["sequence"] = sequence;
  return members.dump();
}

std::string stateText(const std::string& state, const std::string& session, std::optional<std::uint64_t> sequence) {
  ordered_json members{{"state", state}, {"session", session}};
  if (sequence) members["sequence"] = *sequence;
  return members.dump();
}

}  // namespace norra::fleet
