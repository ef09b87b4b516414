// Writing and reading one report of each kind, ours and by two libraries that do the same.
#include <benchmark/benchmark.h>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"
#include "benchmarks/Allocations.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/WireFormatPeers.h"
#include "benchmarks/WireFormatSamples.h"

namespace norra::benchmarks {
namespace {

using Encoder = std::string (*)(const Action&);
using Decoder = Action (*)(std::string_view);

Action decodeOurs(std::string_view text) { return std::get<Action>(decodeAction(text)); }

void encoding(benchmark::State& state, Encoder encoder, const Action& action) {
  if (encoder(action) != encode(action)) return state.SkipWithError("writes other bytes");
  const AllocationCounter allocations(state);
  for (auto _ : state) benchmark::DoNotOptimize(encoder(action));
}

void decoding(benchmark::State& state, Decoder decoder, const Action& action) {
  const auto text = encode(action);
  if (decoder(text) != action) return state.SkipWithError("reads another action");
  const AllocationCounter allocations(state);
  for (auto _ : state) benchmark::DoNotOptimize(decoder(text));
}

void registerKind(const Action& action) {
  const std::string name(rawValue(kind(action)));
  const auto add = [&](const std::string& what, auto benchmark, auto codec) {
    benchmark::RegisterBenchmark((what + "/" + name).c_str(),
                                 [=, &action](auto& state) { benchmark(state, codec, action); });
  };
  add("encode/ours", encoding, Encoder{encode});
  add("encode/nlohmann-json", encoding, Encoder{nlohmannPeer::encode});
  add("decode/ours", decoding, Decoder{decodeOurs});
  add("decode/nlohmann-json", decoding, Decoder{nlohmannPeer::decode});
  add("decode/simdjson", decoding, Decoder{simdjsonPeer::decode});
}

}  // namespace

void registerWireFormat() {
  for (const auto& action : sampleActions()) registerKind(action);
}

}  // namespace norra::benchmarks
