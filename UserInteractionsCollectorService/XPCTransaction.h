#pragma once

#include "Platform/Connection.h"

namespace norra {

/// Keeps the process marked as busy for as long as it exists.
class XPCTransaction {
 public:
  explicit XPCTransaction(ProcessServices& process) : process_(process) { process_.beginTransaction(); }
  ~XPCTransaction() { process_.endTransaction(); }
  XPCTransaction(const XPCTransaction&) = delete;
  XPCTransaction& operator=(const XPCTransaction&) = delete;

 private:
  ProcessServices& process_;
};

}  // namespace norra
