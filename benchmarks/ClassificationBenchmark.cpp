// What the meaning of one click costs the core itself: the classification, beside the bare reads that it does.
#include <benchmark/benchmark.h>

#include "NorraDataCollector/interpretation/ClickClassification.h"
#include "benchmarks/Allocations.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/ClickScenes.h"

namespace norra::benchmarks {
namespace {

std::vector<Read> readsOfClick(const AXUIElement& clicked) {
  std::vector<Read> reads;
  ConstantElement::noteReads(&reads);
  benchmark::DoNotOptimize(actionsForClick(clicked, MouseButton::left, false));
  ConstantElement::noteReads(nullptr);
  return reads;
}

void classify(benchmark::State& state, const ClickScene& scene) {
  ConstantTree tree;
  const auto clicked = scene.build(tree);
  if (actionsForClick(clicked, MouseButton::left, false).empty()) return state.SkipWithError("means nothing");
  const AllocationCounter allocations(state);
  for (auto _ : state) benchmark::DoNotOptimize(actionsForClick(clicked, MouseButton::left, false));
}

void readOnly(benchmark::State& state, const ClickScene& scene) {
  ConstantTree tree;
  const auto reads = readsOfClick(scene.build(tree));
  state.counters["reads"] = static_cast<double>(reads.size());
  const AllocationCounter allocations(state);
  for (auto _ : state) repeat(reads);
}

void registerScene(const ClickScene& scene) {
  const auto add = [&](const std::string& what, auto benchmark) {
    benchmark::RegisterBenchmark((what + "/" + scene.name).c_str(),
                                 [=, &scene](auto& state) { benchmark(state, scene); });
  };
  add("click/whole", classify);
  add("click/reads", readOnly);
}

}  // namespace

void registerClassification() {
  for (const auto& scene : clickScenes()) registerScene(scene);
}

}  // namespace norra::benchmarks
