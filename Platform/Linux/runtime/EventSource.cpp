#include "Platform/Linux/runtime/EventSource.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace norra::linux_desktop {

int require(int result, const char* operation) {
  if (result >= 0) return result;
  std::fprintf(stderr, "%s: %s\n", operation, std::strerror(-result));
  std::abort();
}

}  // namespace norra::linux_desktop
