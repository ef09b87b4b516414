#include <benchmark/benchmark.h>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionEncoding.h"
#include "benchmarks/Allocations.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/WireFormat.h"
#include "benchmarks/WireFormatSamples.h"

namespace norra::benchmarks {
namespace {

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

}  // namespace

void registerCodec(const std::string& name, Encoder encoder, Decoder decoder) {
  for (const auto& action : sampleActions()) {
    const auto add = [&](const std::string& what, auto benchmark, auto codec) {
      if (codec == nullptr) return;
      benchmark::RegisterBenchmark((what + "/" + name + "/" + std::string(rawValue(kind(action)))).c_str(),
                                   [=, &action](auto& state) { benchmark(state, codec, action); });
    };
    add("encode", encoding, encoder);
    add("decode", decoding, decoder);
  }
}

void registerWireFormat() { registerCodec("ours", encode, decodeOurs); }

}  // namespace norra::benchmarks
