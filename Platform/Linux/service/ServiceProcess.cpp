#include "Platform/Linux/service/ServiceProcess.h"

namespace norra::linux_desktop {

ServiceProcess::ServiceProcess(Parts parts, std::chrono::nanoseconds idleTime)
    : parts_(parts), termination_(parts.loop, idleTime, [this] { parts_.listener.endIfUnused(); }) {
  parts_.listener.setConnectionCountHandler([this](std::size_t count) { termination_.setConnectedClients(count); });
}

ServiceProcess::~ServiceProcess() {
  parts_.listener.setConnectionCountHandler([](std::size_t) {});
}

void ServiceProcess::setAutomaticTerminationSupportEnabled(bool enabled) {
  parts_.loop.post([this, enabled] { termination_.setEnabled(enabled); });
}

void ServiceProcess::changeOpenTransactions(int by) {
  transactions_ += static_cast<std::size_t>(by);
  parts_.loop.post([this] { termination_.setOpenTransactions(transactions_); });
}

void ServiceProcess::exit(int status) {
  parts_.executors.close();
  parts_.loop.post([this, status] { parts_.listener.end(status); });
}

}  // namespace norra::linux_desktop
