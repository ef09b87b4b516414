#!/bin/sh
# stream-desktop.sh [OPTIONS]: publishes each report of this desktop as one MQTT message, until Ctrl-C. The options are
# mosquitto_pub's, for example -h BROKER -p 8883 --cafile FILE -u USER -P PASSWORD.
norra-collect --format jsonl |
  mosquitto_pub -q 1 -t "desktops/$(uname -n)/$(id -un)/interactions" -l "$@"
