#!/bin/sh
# check-watch.sh WATCH CLIENT: looks at what the watching script prints while a client collects. Under with-service.sh.
set -eu
watch=$1
client=$2
output=$(mktemp)
"$watch" >"$output" &
trap 'kill $! 2>/dev/null; rm -f "$output"' EXIT
# The first reports may pass before the monitor is there.
tries=20
until grep -q '^{"action":"Collector","operation":"stop"}$' "$output"; do
  tries=$((tries - 1))
  [ $tries -gt 0 ] || { echo "nothing was seen"; exit 1; }
  "$(dirname "$0")/check-client.sh" "$client"
done
