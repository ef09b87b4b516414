// Some applications make their elements, or fill their caches, only when somebody asks for the first time.
#pragma once

#include "Platform/Accessibility.h"

namespace norra::linux_desktop {

class AtspiSession;

/// Asks the windows of an application what makes it show its contents. To be repeated when the application is followed
/// again, since it may have stopped, and when it shows another page.
void wake(AtspiSession& session, ProcessIdentifier process);

}  // namespace norra::linux_desktop
