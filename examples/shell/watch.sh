#!/bin/sh
# Prints the reports that the service sends to any of its clients, as they pass over the bus. Needs busctl and jq, and a
# client that collects: busctl calls and listens, but has no object that the service could report to.
command -v jq >/dev/null || { echo "watch.sh: jq is needed (apt install jq)" >&2; exit 1; }
exec busctl --user --json=short monitor --match "interface='com.norra.ClientProtocol',member='addEvent'" |
  jq --unbuffered --raw-output 'select(.type == "method_call" and .member == "addEvent") | .payload.data[0]'
