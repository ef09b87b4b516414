// The service process: its transactions and its end. To end it means that nothing runs any more; the program that plays
// the desktop lives on and can say how it came out.
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

  void setAutomaticTerminationSupportEnabled(bool /*enabled*/) override {}
  void beginTransaction() override;
  void endTransaction() override;
  void exit(int status) override;

  /// Nothing while the process lives.
  std::optional<int> exitStatus() const { return exitStatus_; }

 private:
  Scheduler& scheduler_;
  ProcessObserver* observer_ = nullptr;
  std::optional<int> exitStatus_;
};

}  // namespace norra::simulated
