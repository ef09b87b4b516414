#!/bin/sh
# check-mqtt.sh STREAM FOLDER-OF-NORRA-COLLECT: streams a desktop into a real broker and looks at what a subscriber gets.
# Under with-service.sh.
set -eu
stream=$1
PATH=$2:$PATH:/usr/sbin
folder=$(mktemp -d)
trap 'kill $broker $subscriber 2>/dev/null; rm -rf "$folder"' EXIT
broker= subscriber=

# wait_for COMMAND...
wait_for() {
  tries=400
  until "$@"; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || { echo "waited in vain for: $*"; cat "$folder/received"; exit 1; }
    sleep 0.05
  done
}

# The topics are desktops/HOST/USER/interactions; a probe shows when the subscription stands.
probe_arrives() {
  mosquitto_pub --unix "$folder/socket" -t desktops/test/probe/interactions -m probe 2>/dev/null &&
    grep -q probe "$folder/received"
}
is_received() { grep -q "^desktops/$(uname -n)/$(id -un)/interactions .*\"operation\":\"$1\"" "$folder/received"; }

cat >"$folder/broker.conf" <<CONFIGURATION
listener 0 $folder/socket
allow_anonymous true
user $(id -un)
CONFIGURATION
touch "$folder/received"
mosquitto -c "$folder/broker.conf" 2>/dev/null &
broker=$!
wait_for [ -S "$folder/socket" ]
mosquitto_sub --unix "$folder/socket" -t 'desktops/+/+/interactions' -v >"$folder/received" &
subscriber=$!
wait_for probe_arrives

setsid env --default-signal=INT "$stream" --unix "$folder/socket" &
streaming=$!
wait_for is_received start
env kill -INT -- "-$streaming"
wait_for is_received stop
wait $streaming || [ $? -eq 130 ]
