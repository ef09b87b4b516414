// What an application on the accessibility bus can do to whoever reads it.
#pragma once

#include <memory>
#include <ostream>
#include <span>

#include "tests/Platform/Linux/FakeApplication.h"

namespace norra::linux_desktop {

/// One window with one button, "Reef", in it, wherever on the screen one looks.
void showReef(FakeApplication& application);

struct HostileFault {
  const char* name;
  /// Makes an application that shows the reef hostile until the result is let go, which must not outlive it.
  std::shared_ptr<void> (*begin)(FakeApplication& application);
};

std::span<const HostileFault> hostileFaults();

inline void PrintTo(const HostileFault& fault, std::ostream* out) { *out << fault.name; }

}  // namespace norra::linux_desktop
