#!/bin/sh
# check-pause-key.sh NORRA-COLLECT: the key p on a terminal pauses and resumes, and is not shown. Under with-service.sh.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkfifo "$folder/keys"

# wait_for COUNT PATTERN
wait_for() {
  tries=400
  until [ "$(grep -c "$2" "$folder/screen")" -ge "$1" ]; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || { echo "no $2 on the screen:"; cat "$folder/screen"; exit 1; }
    sleep 0.05
  done
}

touch "$folder/screen"
script --quiet --flush --return --command "$1 --format jsonl --count 3" /dev/null <"$folder/keys" >"$folder/screen" &
terminal=$!
exec 3>"$folder/keys"
wait_for 1 '"operation":"start"'
printf p >&3
wait_for 1 '"operation":"stop"'
wait_for 1 Paused
printf p >&3
wait_for 2 '"operation":"start"'
wait $terminal
if grep -q '^p' "$folder/screen"; then echo "the key is shown"; exit 1; fi
