#!/bin/bash
# Builds in release and prints what can be measured without a desktop as tables (Markdown).
# run.sh [REPETITIONS [FILTER]]: 9 repetitions of everything by default, of which the median counts.
set -euo pipefail
cd "$(dirname "$0")/.."

repetitions=${1:-9}
filter=${2:-.}
results=build/release/benchmarks.json

cmake --preset release >/dev/null
cmake --build --preset release --target norra-benchmarks >&2
build/release/bin/norra-benchmarks --benchmark_filter="$filter" --benchmark_min_time=0.05 \
  --benchmark_repetitions="$repetitions" --benchmark_enable_random_interleaving=true \
  --benchmark_out="$results" --benchmark_out_format=json >/dev/null
python3 benchmarks/tables.py "$results"
