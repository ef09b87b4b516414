#pragma once

#include "Platform/RunLoop.h"

namespace norra::linux_desktop {

class SystemClock final : public Clock {
 public:
  std::chrono::system_clock::time_point now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace norra::linux_desktop
