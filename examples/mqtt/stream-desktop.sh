#!/bin/sh
# stream-desktop.sh [OPTION...]: publishes each report of this desktop as one MQTT message, until Ctrl-C. The options are
# mosquitto_pub's, for example -h BROKER -p 8883 --cafile FILE -u USER -P PASSWORD.
command -v mosquitto_pub >/dev/null || {
  echo "stream-desktop.sh: mosquitto_pub is needed (apt install mosquitto-clients)" >&2
  exit 1
}
topic="desktops/$(uname -n)/$(id -un)/interactions"
# Ctrl-C is for norra-collect, whose last report is still to be published.
norra-collect --format jsonl | (trap '' INT; exec mosquitto_pub -q 1 -t "$topic" -l "$@")
