#pragma once

#include <string>
#include <string_view>

namespace norra::scenario {

/// The text as a JSON string: slashes as they are, everything beyond ASCII as UTF-8.
std::string jsonText(std::string_view text);

}  // namespace norra::scenario
