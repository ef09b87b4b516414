// The topics of a desktop: desktops/HOST/USER/LEAF.
#pragma once

#include <string>
#include <string_view>

namespace norra::fleet {

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
