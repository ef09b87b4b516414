#!/usr/bin/env bash
# accuracy.sh [APPLICATION...]: does in real applications what a person does, and prints how much of it was told as
# somebody who saw the screen would tell it. The applications are the files of accuracy/applications; all without arguments.
# Installs those of accuracy/packages.txt that are missing. NORRA_PROGRAMS names a folder of other programs than the release's.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2,4s/^# //p' "$0"; exit 0 ;;
esac

[ $# -gt 0 ] || set -- $(ls accuracy/applications | sed -n 's/\.py$//p')
export NORRA_PROGRAMS=${NORRA_PROGRAMS:-$PWD/build/release/bin} PYTHONDONTWRITEBYTECODE=1
readonly results=${NORRA_ACCURACY_RESULTS:-$PWD/build/accuracy}
mkdir -p "$results"

prepare() {
  scripts/setup.sh
  scripts/setup.sh accuracy/packages.txt
  [ ! -x "$NORRA_PROGRAMS/norra-collect" ] || return 0
  cmake --preset release >/dev/null
  cmake --build --preset release --target norra-collect norra-collector-service >&2
}

measure() { timeout 900 scripts/headless-desktop.sh /usr/bin/python3 accuracy/measure.py "$@"; }

prepare
for application in "$@"; do
  echo "== $application" >&2
  measure "$application" "$results/$application.json" >&2 || echo "accuracy.sh: $application: given up" >&2
  measure "$application" "$results/$application.alone.json" --alone >"$results/$application.alone.log" 2>&1 || true
done
/usr/bin/python3 accuracy/table.py "$results"
