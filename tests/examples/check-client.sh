#!/bin/sh
# check-client.sh [--service-ends] CLIENT...: runs a client program until its first report, interrupts it, and looks at what
# it printed. With --service-ends the service is ended instead, and the client has to notice. Under with-service.sh.
set -eu
end=interruption
if [ "$1" = --service-ends ]; then
  end=service
  shift
fi
output=$(mktemp)
trap 'rm -f "$output" "$output.errors"' EXIT
# A job in the background of a script ignores Ctrl-C unless it is told otherwise.
env --default-signal=INT "$@" >"$output" 2>"$output.errors" &
client=$!
until grep -q start "$output"; do
  kill -0 $client || { cat "$output.errors"; echo "the client has ended without a report"; exit 1; }
  sleep 0.05
done
if [ $end = service ]; then
  process=$(busctl --user call org.freedesktop.DBus /org/freedesktop/DBus org.freedesktop.DBus \
    GetConnectionUnixProcessID s com.norra.UserInteractionsCollectorService)
  kill -TERM "${process#u }"
  ! wait $client || { echo "the client ended as if nothing had happened"; exit 1; }
  grep -q "the service has ended" "$output.errors" || { cat "$output.errors"; exit 1; }
  exit 0
fi
kill -INT $client
wait $client || { cat "$output.errors"; exit 1; }
reports=$(tr -d ' ' <"$output")
expected='{"action":"Collector","operation":"start"}
{"action":"Collector","operation":"stop"}'
[ "$reports" = "$expected" ] || { printf 'printed:\n%s\n' "$reports"; exit 1; }
