// A whole platform, handed in by a main function. There is no other way to the desktop: what is not in this list the
// core cannot ask for, and whoever implements the list has a platform.
#pragma once

#include "Platform/Accessibility.h"
#include "Platform/Connection.h"
#include "Platform/EventTap.h"
#include "Platform/RunLoop.h"
#include "Platform/Workspace.h"

namespace norra {

/// The facilities of one platform. Not owned; all outlive whatever is given them.
struct Platform {
  Accessibility& accessibility;
  EventTaps& eventTaps;
  Workspace& workspace;
  MainRunLoop& mainRunLoop;
  SerialExecutors& serialExecutors;
  Clock& clock;
  NSXPCListener& listener;
  ProcessServices& process;
};

}  // namespace norra
