#!/usr/bin/env bash
# test.sh [--all | PRESET...]: builds and tests. Without arguments: release. --all: also asan and tsan, of which the
# end-to-end tests are left out; about fifteen minutes more on two cores.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2,3s/^# //p' "$0"; exit 0 ;;
esac
presets=("$@")
[ $# -gt 0 ] || presets=(release)
[ "${1:-}" != --all ] || presets=(release asan tsan)

jobs=$(nproc)
scripts/setup.sh
for preset in "${presets[@]}"; do
  selection=(--repeat until-pass:3)  # real applications answer late now and then
  [ "$preset" = release ] || selection+=(--label-exclude 'endtoend|report|soak')
  [ "$preset" != tsan ] || selection+=(--label-regex 'threads|desktop')
  echo "== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --parallel "$jobs"
  ctest --preset "$preset" --parallel "$jobs" --no-tests=error "${selection[@]}"
done
