// Qt 5 and 6.
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

// It calls the list of tabs by the tab that is open.
std::string_view properName(std::string_view name, AtspiRole role) {
  return role == AtspiRole::pageTabList ? std::string_view() : name;
}

}  // namespace

const Toolkit qt{
    .viewsTellSelections = false,
    .isLabelledByOwnParts = false,
    .properName = properName,
};

}  // namespace norra::linux_desktop
