#!/usr/bin/env bash
# test.sh [PRESET...]: builds and tests. Without arguments: release, asan, and of tsan what has threads.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2s/^# //p' "$0"; exit 0 ;;
esac
presets=("$@")
[ $# -gt 0 ] || presets=(release asan tsan)

jobs=$(nproc)
scripts/setup.sh
for preset in "${presets[@]}"; do
  selection=()
  [ "$preset" != tsan ] || selection=(--label-regex 'threads|desktop')
  echo "== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --parallel "$jobs"
  ctest --preset "$preset" --parallel "$jobs" --no-tests=error "${selection[@]}"
done
