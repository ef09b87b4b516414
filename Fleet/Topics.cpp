#include "Fleet/Topics.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace norra::fleet {
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
