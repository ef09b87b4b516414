// A whole platform, handed in by a main function.
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
