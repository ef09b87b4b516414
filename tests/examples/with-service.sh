#!/bin/sh
# with-service.sh SERVICE COMMAND...: runs the command on a session bus of its own that starts the service on demand. No
# display, no other service. Fails when the service outlives the command.
set -eu
service=$1
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -m 700 "$folder/services" "$folder/run"
cat >"$folder/services/service.service" <<SERVICE
[D-BUS Service]
Name=com.norra.UserInteractionsCollectorService
Exec=/bin/sh -c 'echo \$\$ >$folder/pid; exec $service'
SERVICE
cat >"$folder/bus.conf" <<CONFIGURATION
<busconfig><type>session</type><listen>unix:dir=$folder</listen><servicedir>$folder/services</servicedir>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>
CONFIGURATION
status=0
env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR="$folder/run" \
  timeout 60 dbus-run-session --config-file="$folder/bus.conf" -- "$@" || status=$?
if [ ! -f "$folder/pid" ]; then
  echo "the service was never started" >&2
  exit 1
fi
tries=200
while kill -0 "$(cat "$folder/pid")" 2>/dev/null; do
  tries=$((tries - 1))
  [ $tries -gt 0 ] || { echo "the service outlives its client" >&2; exit 1; }
  sleep 0.05
done
exit $status
