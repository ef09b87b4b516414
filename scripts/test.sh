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

# Only the tests of real applications and desktops; tests/tries.sh runs them.
export NORRA_TRIES=3

# The tests of the last run that did not pass at the first try.
tried_again() {
  awk '/ Testing: / { name = $NF } /^Try [0-9]+ failed\.$/ { print name }' \
    "build/$1/Testing/Temporary/LastTest.log" | sort | uniq --count
}

jobs=$(nproc)
scripts/setup.sh
for preset in "${presets[@]}"; do
  selection=()
  [ "$preset" = release ] || selection+=(--label-exclude 'endtoend|report|soak')
  [ "$preset" != tsan ] || selection+=(--label-regex 'threads|desktop')
  echo "== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" --parallel "$jobs"
  status=0
  ctest --preset "$preset" --parallel "$jobs" --no-tests=error "${selection[@]}" || status=$?
  again=$(tried_again "$preset")
  [ -z "$again" ] || printf '\nNeeded more than one try, and how often each failed before the last one:\n%s\n' "$again"
  [ "$status" -eq 0 ] || exit "$status"
done
