#include "benchmarks/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

void* allocate(std::size_t size) {
  ++count;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::size_t alignment) {
  ++count;
  if (void* memory = std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocateAligned(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

namespace norra::benchmarks {

std::size_t allocationCount() { return count; }

}  // namespace norra::benchmarks
