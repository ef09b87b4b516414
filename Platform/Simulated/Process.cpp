#include "Platform/Simulated/Process.h"

namespace norra::simulated {

void Process::beginTransaction() {
  if (observer_) observer_->transactionDidBegin();
}

void Process::endTransaction() {
  if (observer_) observer_->transactionDidEnd();
}

void Process::exit(int status) {
  if (exitStatus_) return;
  exitStatus_ = status;
  scheduler_.stop();
  if (observer_) observer_->processDidExit(status);
}

}  // namespace norra::simulated
