#!/bin/sh
# check-client.sh CLIENT...: runs a client program until its first report, interrupts it, and looks at what it printed.
# Under with-service.sh.
set -eu
output=$(mktemp)
trap 'rm -f "$output"' EXIT
# A job in the background of a script ignores Ctrl-C unless it is told otherwise.
env --default-signal=INT "$@" >"$output" &
client=$!
until grep -q start "$output"; do
  kill -0 $client || { echo "the client has ended without a report"; exit 1; }
  sleep 0.05
done
kill -INT $client
wait $client
reports=$(tr -d ' ' <"$output")
expected='{"action":"Collector","operation":"start"}
{"action":"Collector","operation":"stop"}'
[ "$reports" = "$expected" ] || { printf 'printed:\n%s\n' "$reports"; exit 1; }
