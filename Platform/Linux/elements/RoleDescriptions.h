// English words for the core's roles, for elements whose toolkit has none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace norra::linux_desktop {

/// Nothing for a role that is not known. A subrole that is not known does not matter.
std::optional<std::string> englishRoleDescription(std::string_view role, std::optional<std::string_view> subrole);

}  // namespace norra::linux_desktop
