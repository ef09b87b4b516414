// The service process: its transactions and its end.
#pragma once

#include "Platform/Connection.h"
#include "Platform/Simulated/Scheduler.h"

namespace norra::simulated {

/// Is told what happens to the process.
class ProcessObserver {
 public:
  virtual ~ProcessObserver() = default;
  virtual void transactionDidBegin() {}
  virtual void transactionDidEnd() {}
  virtual void processDidExit(int /*status*/) {}
};

class Process final : public ProcessServices {
 public:
  explicit Process(Scheduler& scheduler) : scheduler_(scheduler) {}

  /// Not owned; null: nobody is told.
  void setObserver(ProcessObserver* observer) { observer_ = observer; }

  void setAutomaticTerminationSupportEnabled(bool enabled) override { canTerminateAutomatically_ = enabled; }
  void beginTransaction() override;
  void endTransaction() override;
  void exit(int status) override;

  bool canTerminateAutomatically() const { return canTerminateAutomatically_; }
  int openTransactions() const { return openTransactions_; }
  /// Nothing while the process lives.
  std::optional<int> exitStatus() const { return exitStatus_; }

 private:
  Scheduler& scheduler_;
  ProcessObserver* observer_ = nullptr;
  bool canTerminateAutomatically_ = false;
  int openTransactions_ = 0;
  std::optional<int> exitStatus_;
};

}  // namespace norra::simulated
