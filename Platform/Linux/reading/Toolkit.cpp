#include "Platform/Linux/reading/Toolkit.h"

namespace norra::linux_desktop {

Asks asksForRole(AtspiRole role, const Toolkit& toolkit) {
  Asks asks = toolkit.asksForRole ? toolkit.asksForRole(role) : Asks{};
  if (is(role, RoleKind::statesDecide)) asks |= Ask::states;
  if (toolkit.showsWebPages && is(role, RoleKind::attributesDecide)) asks |= Ask::attributes;
  return asks;
}

}  // namespace norra::linux_desktop
