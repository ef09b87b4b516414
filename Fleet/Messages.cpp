
#include "Fleet/Messages.h"

#include <pwd.h>
#include <systemd/sd-id128.h>
#include <unistd.h>

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

namespace {

std::string asLevel(std::string_view name) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string level;
  for (const char character : name) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isPlain =
        byte > 0x20 && byte != 0x7F && std::string_view("/+#%").find(character) == std::string_view::npos;
    if (isPlain) {
      level += character;
    } else {
      level.append({'%', digits[byte >> 4U], digits[byte & 0xFU]});
    }
  }
  return level.empty() ? "%" : level;
}

std::string hostName() {
  std::array<char, 256> name{};
  gethostname(name.data(), name.size() - 1);
  return name.data();
}

std::string userName() {
  const auto* user = getpwuid(getuid());
  return user == nullptr ? std::to_string(getuid()) : user->pw_name;
}

}  // namespace

Desktop thisDesktop() { return {hostName(), userName()}; }

std::string topicOf(const Desktop& desktop, std::string_view leaf) {
  return "desktops/" + asLevel(desktop.host) + "/" + asLevel(desktop.user) + "/" + std::string(leaf);
}

}  // namespace norra::fleet
