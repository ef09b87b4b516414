#!/bin/bash
# Builds in release, measures, and prints tables (Markdown); docs/performance.md says what they mean.
# run.sh                                 everything but the peers
# run.sh core [REPETITIONS [FILTER]]     what needs no desktop: 9 repetitions by default, of which the median counts
# run.sh desktop [SECTION...]            on a private desktop: sections of benchmarks/desktop/measure.py, all by default
# run.sh report [ACTIONS [TIMES]]        how long a report page takes to open in a browser
# run.sh peers [json | SECTION...]       other libraries: JSON, and libatspi by sections of benchmarks/peers/measure.py
set -euo pipefail
cd "$(dirname "$0")/.."

export PYTHONDONTWRITEBYTECODE=1
tests=$PWD/tests

# measure_core PROGRAM [REPETITIONS [FILTER]]
measure_core() {
  local results=$build/benchmarks.json
  cmake --build "$build" --target "$1" >&2
  "$build/bin/$1" --benchmark_filter="${3:-.}" --benchmark_min_time=0.05 \
    --benchmark_repetitions="${2:-9}" --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results" --benchmark_out_format=json >/dev/null
  [ -s "$results" ] || { echo "run.sh: no benchmark has ${3:-anything} in its name" >&2; exit 1; }
  python3 benchmarks/tables.py "$results"
}

# measure_desktop SCRIPT [SECTION...]
measure_desktop() {
  cmake --build "$build" --target norra-desktop-benchmark norra-collector-service norra-collect >&2
  XDG_DATA_DIRS="$PWD/$build/share:/usr/local/share:/usr/share" NORRA_PROGRAMS="$PWD/$build/bin" \
    PYTHONPATH="$tests/endtoend:$tests/applications:benchmarks/desktop" \
    scripts/headless-desktop.sh /usr/bin/python3 "$@"
}

measure_report() {
  cmake --build "$build" --target norra-report >&2
  PYTHONPATH="$tests/Report" python3 benchmarks/report/measure_opening.py "$build/bin/norra-report" "$@"
}

measure_peers() {
  [ "${1:-json}" != json ] || measure_core norra-json-peers
  [ "${1:-}" != json ] || return 0
  cmake --build "$build" --target norra-libatspi-clicks >&2
  measure_desktop benchmarks/peers/measure.py "$@"
}

build=build/release
configure=()
case "${1:-all}" in
  -h | --help) sed -n '3,7s/^# //p' "$0"; exit 0 ;;
  all | core | desktop | report) ;;
  peers) build=build/peers configure=(-B "$build" -DNORRA_BENCHMARK_PEERS=ON) ;;
  *) sed -n '3,7s/^# //p' "$0" >&2; exit 2 ;;
esac
scripts/setup.sh
cmake --preset release "${configure[@]}" >/dev/null
case ${1:-all} in
  core) measure_core norra-benchmarks "${@:2}" ;;
  desktop) measure_desktop benchmarks/desktop/measure.py "${@:2}" ;;
  report) measure_report "${@:2}" ;;
  peers) measure_peers "${@:2}" ;;
  all) measure_core norra-benchmarks && measure_desktop benchmarks/desktop/measure.py && measure_report ;;
esac
