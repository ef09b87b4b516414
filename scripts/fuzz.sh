#!/bin/bash
# fuzz.sh [SECONDS [FUZZER...]]: looks for inputs that break what reads them, with each fuzzer for so long (30 s by default).
# What it finds is kept in build/fuzz/findings, what it learnt in build/fuzz/corpus. NORRA_SEED repeats a run from the same corpus.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2,3s/^# //p' "$0"; exit 0 ;;
esac
seconds=${1:-30}
shift || true
fuzzers=("$@")
[ ${#fuzzers[@]} -gt 0 ] || fuzzers=(Address Reply Report Scenario Text)

scripts/setup.sh
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzzers
mkdir -p build/fuzz/findings

status=0
for name in "${fuzzers[@]}"; do
  learnt=build/fuzz/corpus/$name
  known=(tests/fuzz/corpus/"$name")
  [ "$name" = Scenario ] && known+=(tests/scenarios)
  options=(-max_total_time="$seconds" -print_final_stats=1 -verbosity=0 -timeout=20 -rss_limit_mb=2048 -seed="${NORRA_SEED:-0}"
           -artifact_prefix=build/fuzz/findings/"$name"-)
  [ -f tests/fuzz/"$name".dict ] && options+=(-dict=tests/fuzz/"$name".dict)
  mkdir -p "$learnt"
  echo "== $name"
  build/fuzz/bin/"$name"Fuzzer "${options[@]}" "$learnt" "${known[@]}" >build/fuzz/"$name".log 2>&1 || status=1
  if grep -q '^SUMMARY' build/fuzz/"$name".log; then
    tail -n 40 build/fuzz/"$name".log
  fi
  grep -E 'number_of_executed_units|average_exec_per_sec' build/fuzz/"$name".log || true
done
exit $status
