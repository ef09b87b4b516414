#include "Platform/Linux/reading/Roles.h"

#include <algorithm>

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
constexpr std::array searchEnds{"AXApplication"sv, "AXList"sv,       "AXMenuBar"sv,  "AXOutline"sv,
                                "AXScrollBar"sv,   "AXSplitGroup"sv, "AXTabGroup"sv, "AXTable"sv,
                                "AXToolbar"sv,     "AXWebArea"sv,    "AXWindow"sv};

}  // namespace

bool endsSearch(AtspiRole role) { return std::ranges::find(searchEnds, rowOf(role).name.role) != searchEnds.end(); }

}  // namespace norra::linux_desktop
