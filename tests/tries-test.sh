#!/usr/bin/env bash
# tries-test.sh BUILD: what is tried more than once, and how often.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
fails_twice=(bash -c "echo >>$folder/count; [ \$(wc -l <$folder/count) -ge 3 ]")
is_skipped=(bash -c "echo >>$folder/count; exit 77")

# tries LIMIT STATUS COUNT [COMMAND...]: without one, a command that passes at the third time.
tries() {
  local status=0
  local -r command=("${@:4}")
  rm -f "$folder/count"
  NORRA_TRIES=$1 "$(dirname "$0")/tries.sh" "${command[@]:-${fails_twice[@]}}" || status=$?
  [ "$status $(wc -l <"$folder/count")" = "$2 $3" ]
}
tries "" 1 1
tries 2 1 2
tries 5 0 3
tries 5 77 1 "${is_skipped[@]}"

# Real applications answer late now and then; no other test may need more than one try. Asked from a folder of its own:
# the log of the run that this belongs to is left alone.
echo "subdirs(\"$1/tests\")" >"$folder/CTestTestfile.cmake"
ctest --test-dir "$folder" --show-only=json-v1 | jq --exit-status '[.tests[] |
  {name, isTried: (.command[0]? // "" | endswith("/tries.sh")),
   mayBe: any(.properties[]? | select(.name == "LABELS").value[]; . == "endtoend" or . == "desktop")} |
  select(.isTried != .mayBe)] == []'
