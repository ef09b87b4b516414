#include "Platform/Linux/AtspiAccessibility.h"

namespace norra::linux_desktop {

AXResult<std::unique_ptr<AXObserver>> AtspiAccessibility::createObserver(ProcessIdentifier /*process*/,
                                                                         AXObserverCallback /*callback*/) {
  return {axError::notificationUnsupported, nullptr};
}

}  // namespace norra::linux_desktop
