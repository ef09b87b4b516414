#!/bin/bash
# Builds in release, measures, and prints tables (Markdown); docs/performance.md says what they mean.
# run.sh                                 everything
# run.sh core [REPETITIONS [FILTER]]     what needs no desktop: 9 repetitions by default, of which the median counts
# run.sh desktop [SECTION...]            on a private desktop: sections of benchmarks/desktop/measure.py, all by default
set -euo pipefail
cd "$(dirname "$0")/.."

measure_core() {
  local results=build/release/benchmarks.json
  cmake --build --preset release --target norra-benchmarks >&2
  build/release/bin/norra-benchmarks --benchmark_filter="${2:-.}" --benchmark_min_time=0.05 \
    --benchmark_repetitions="${1:-9}" --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results" --benchmark_out_format=json >/dev/null
  [ -s "$results" ] || { echo "run.sh: no benchmark has ${2:-anything} in its name" >&2; exit 1; }
  python3 benchmarks/tables.py "$results"
}

measure_desktop() {
  cmake --build --preset release --target norra-desktop-benchmark norra-collector-service norra-collect >&2
  XDG_DATA_DIRS="$PWD/build/release/share:/usr/local/share:/usr/share" NORRA_PROGRAMS="$PWD/build/release/bin" \
    PYTHONDONTWRITEBYTECODE=1 scripts/headless-desktop.sh /usr/bin/python3 benchmarks/desktop/measure.py "$@"
}

case "${1:-}" in
  -h | --help) sed -n '3,5s/^# //p' "$0"; exit 0 ;;
esac
scripts/setup.sh
cmake --preset release >/dev/null
case ${1:-all} in
  core) measure_core "${@:2}" ;;
  desktop) measure_desktop "${@:2}" ;;
  all) measure_core && measure_desktop ;;
  *) sed -n '3,5s/^# //p' "$0" >&2; exit 2 ;;
esac
