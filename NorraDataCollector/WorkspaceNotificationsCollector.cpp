#include "NorraDataCollector/WorkspaceNotificationsCollector.h"

#include <utility>

#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"

namespace norra {

WorkspaceNotificationsCollector::WorkspaceNotificationsCollector(Workspace& workspace,
                                                                 DidActivateApplication didActivateApplication)
    : activations_(workspace.onActivation([didActivateApplication = std::move(didActivateApplication)](
                                              const std::optional<NSRunningApplication>& application) {
        if (application) return didActivateApplication(*application);
        NorraDataCollectorLogging::defaultLogger().error(
            "No running application in didActivateApplicationNotification");
      })) {}

}  // namespace norra
