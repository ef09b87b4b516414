#include "Platform/Linux/reading/AtspiSession.h"

namespace norra::linux_desktop {

AtspiSession::AtspiSession(const ReadingEpoch& epoch, ToolkitLookup toolkitOf)
    : applications(toolkitOf), epoch_(epoch) {
  shared.bus.onNewGeneration([this] { forgetAll(); });
}

AtspiReader& AtspiSession::reader() {
  const std::lock_guard lock(mutex_);
  auto& reader = readers_[std::this_thread::get_id()];
  if (!reader) reader = std::make_unique<AtspiReader>(shared, applications, epoch_);
  reader->enter();
  return *reader;
}

void AtspiSession::forget(const std::string& busName) {
  applications.forget(busName);
  shared.resting.forget(busName);
}

void AtspiSession::forgetAll() {
  applications.clear();
  processes.clear();
  shared.resting.clear();
}

}  // namespace norra::linux_desktop
