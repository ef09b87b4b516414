// norra-json-peers: the wire format by this product and by two well-known libraries, with the flags of
// norra-benchmarks.
#include <benchmark/benchmark.h>

#include "benchmarks/Benchmarks.h"
#include "benchmarks/WireFormat.h"
#include "benchmarks/peers/WireFormatPeers.h"

int main(int argc, char** argv) {
  using namespace norra::benchmarks;
  registerWireFormat();
  registerCodec("nlohmann-json", nlohmannPeer::encode, nlohmannPeer::decode);
  registerCodec("simdjson", nullptr, simdjsonPeer::decode);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
