#!/bin/sh
# check.sh PLAYER NAME.json: plays the scenario and compares what it prints with NAME.expected.
set -eu
player=$1
name=${2%.json}
arguments=
if [ -f "$name.arguments" ]; then arguments=$(cat "$name.arguments"); fi
printed=$(mktemp)
trap 'rm -f "$printed"' EXIT
# shellcheck disable=SC2086  # the arguments are words
"$player" $arguments "$2" >"$printed"
diff -u "$name.expected" "$printed"
