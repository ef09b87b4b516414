// Which application comes to the front, for as long as this lives. What that means, a switch or nothing new, is for the
// data collector to say: it knows the application that it follows already.
#pragma once

#include <functional>
#include <memory>

#include "Platform/Workspace.h"

namespace norra {

/// Tells of every activated application for as long as it exists. Belongs to the main thread.
class WorkspaceNotificationsCollector {
 public:
  using DidActivateApplication = std::function<void(const NSRunningApplication&)>;

  WorkspaceNotificationsCollector(Workspace& workspace, DidActivateApplication didActivateApplication);

 private:
  std::unique_ptr<Registration> activations_;
};

}  // namespace norra
