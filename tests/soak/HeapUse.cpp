#include "tests/soak/HeapUse.h"

#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// Of the sanitizers' run-time library, whose header does not come with every compiler.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace norra::soak {

void restartWithoutAllocatorCaches(char** arguments) {
  constexpr auto* variable = "GLIBC_TUNABLES";
  if (std::getenv(variable) != nullptr) return;
  setenv(variable, "glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0", 1);
  execv("/proc/self/exe", arguments);
}

std::size_t heapUse() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return __sanitizer_get_current_allocated_bytes();
#else
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
#endif
}

std::size_t residentSize() {
  std::ifstream file("/proc/self/statm");
  std::size_t size = 0;
  std::size_t resident = 0;
  file >> size >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace norra::soak
