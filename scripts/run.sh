#!/usr/bin/env bash
# run.sh [--headless] [OPTION...]: builds and collects. In a desktop session it collects from it until Ctrl-C; without a
# display, or with --headless, it shows a private desktop with real applications. The options are those of norra-collect.
set -euo pipefail
cd "$(dirname "$0")/.."

is_headless=false
case "${1:-}" in
  -h | --help) sed -n '2,3s/^# //p' "$0"; exit 0 ;;
  --headless) is_headless=true; shift ;;
esac
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || is_headless=true

readonly programs=$PWD/build/release/bin
readonly name=com.norra.UserInteractionsCollectorService

build() {
  scripts/setup.sh
  cmake --preset release >/dev/null
  cmake --build --preset release --target norra-collect norra-collector-service >&2
}

is_owned() { busctl --user status "$name" >/dev/null 2>&1; }

# Starts the service of the build tree; it ends with the collection, or here.
start_service() {
  "$programs/norra-collector-service" &
  service=$!
  trap 'kill "$service" 2>/dev/null || true' EXIT
  until is_owned; do
    kill -0 "$service" 2>/dev/null || { echo "run.sh: the service does not start" >&2; exit 1; }
    sleep 0.05
  done
}

collect_from_this_desktop() {
  is_owned || start_service  # rather than one that may be installed, of another version
  echo "Collecting from this desktop. Ctrl-C ends." >&2
  local status=0
  trap : INT  # norra-collect hears it too, stops the service and prints the last report
  "$programs/norra-collect" "$@" || status=$?
  exit "$status"
}

build
if $is_headless; then
  export PATH="$programs:$PATH"
  export XDG_DATA_DIRS="$PWD/build/release/share:${XDG_DATA_DIRS:-/usr/local/share:/usr/share}"
  exec scripts/headless-desktop.sh scripts/demo.sh "$@"
fi
collect_from_this_desktop "$@"
