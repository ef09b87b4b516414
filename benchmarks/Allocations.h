// Counts what a benchmark takes from the heap.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace norra::benchmarks {

/// Allocations of the calling thread since it began.
std::size_t allocationCount();

/// Adds the allocations of one iteration, counted over its own life, to the benchmark's counters.
class AllocationCounter {
 public:
  explicit AllocationCounter(benchmark::State& state) : state_(state), before_(allocationCount()) {}
  ~AllocationCounter() {
    const auto count = static_cast<double>(allocationCount() - before_);
    state_.counters["allocations"] = benchmark::Counter(count, benchmark::Counter::kAvgIterations);
  }
  AllocationCounter(const AllocationCounter&) = delete;
  AllocationCounter& operator=(const AllocationCounter&) = delete;

 private:
  benchmark::State& state_;
  std::size_t before_;
};

}  // namespace norra::benchmarks
