#pragma once

#include <cstddef>

namespace norra::soak {

/// Starts the program anew, unless that was done already, without the allocator's caches, whose free memory would
/// otherwise count as used. To be called first in main().
void restartWithoutAllocatorCaches(char** arguments);

/// Bytes of the heap that are in use.
std::size_t heapUse();
/// Bytes of memory that the process has in residence.
std::size_t residentSize();

}  // namespace norra::soak
