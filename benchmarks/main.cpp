#include <benchmark/benchmark.h>

#include "benchmarks/Benchmarks.h"

int main(int argc, char** argv) {
  using namespace norra::benchmarks;
  registerWireFormat();
  registerClassification();
  registerGrowth();
  registerThroughput();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
