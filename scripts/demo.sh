#!/usr/bin/env bash
# demo.sh [OPTION...]: what run.sh shows on a private desktop: opens real applications, uses them and switches between
# them as a user would, and prints what norra-collect reports. The options are those of norra-collect.
set -euo pipefail

readonly limit_seconds=60
readonly applications=(mousepad galculator featherpad)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
declare -A window_of process_of

tell() { echo "demo: $*" >&2; }

# wait_until DESCRIPTION COMMAND...
wait_until() {
  local what=$1 deadline=$((SECONDS + limit_seconds))
  shift
  until "$@"; do
    if [ "$SECONDS" -ge "$deadline" ]; then
      tell "waited for $what in vain"
      exit 1
    fi
    sleep 0.05
  done
}

# How many lines so far tell of this, in the one format or the other.
count_of() { grep --count --extended-regexp -- "$1" "$folder/reports" || true; }
has_more_than() { [ "$(count_of "$2")" -gt "$1" ]; }

start_collection() {
  touch "$folder/reports"
  mkfifo "$folder/pipe"
  tee "$folder/reports" <"$folder/pipe" &
  printer=$!
  norra-collect "$@" >"$folder/pipe" &
  collector=$!
  wait_until "the start of collection" has_more_than 0 '"operation":"start"|Collection started'
}

visible_window_of() { xdotool search --onlyvisible --pid "$1" 2>/dev/null | tail -n 1; }
has_window() { [ -n "$(visible_window_of "$1")" ]; }

switch_to_process() { echo "\"processID\":$1,|Switched to"; }

open_application() {
  tell "opening $1"
  local before
  before=$(count_of "Switched to")
  "$1" >/dev/null 2>&1 &
  process_of[$1]=$!
  wait_until "a window of $1" has_window "$!"
  window_of[$1]=$(visible_window_of "$!")
  wait_until "the report of $1" has_more_than "$before" "$(switch_to_process $!)"
}

switch_to() {
  tell "switching to $1"
  local report before
  report=$(switch_to_process "${process_of[$1]}")
  before=$(count_of "$report")
  xdotool windowactivate --sync "${window_of[$1]}"
  wait_until "the report of the switch to $1" has_more_than "$before" "$report"
}

# Waits for the next report after the command, and does it anew where the application was not ready for it.
and_wait() {
  local before again_at=0
  before=$(count_of .)
  is_reported() {
    has_more_than "$before" . && return
    if [ "$SECONDS" -ge "$again_at" ]; then
      "$@"
      again_at=$((SECONDS + 5))
    fi
    return 1
  }
  wait_until "a report of: $*" is_reported "$@"
}

# click_in APPLICATION ACROSS DOWN: in per cent of the window.
click_in() {
  local WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "${window_of[$1]}" | grep --extended-regexp '^(WIDTH|HEIGHT)=[0-9]+$')"
  xdotool mousemove --window "${window_of[$1]}" $((WIDTH * $2 / 100)) $((HEIGHT * $3 / 100)) click 1
}

calculate() {
  switch_to galculator
  tell "clicking 7 + 5 ="
  and_wait click_in galculator 11 58
  and_wait click_in galculator 70 93
  and_wait click_in galculator 30 69
  and_wait click_in galculator 89 87
}

search() {
  switch_to mousepad
  tell "pressing Ctrl+F, typing a word and Return"
  and_wait xdotool key ctrl+f
  and_wait xdotool type --delay 40 ahoy
  and_wait xdotool key Return
}

press_keys() {
  switch_to featherpad
  tell "pressing the down arrow and Ctrl+Home"
  and_wait xdotool key Down
  and_wait xdotool key ctrl+Home
}

stop_collection() {
  kill -TERM "$collector"  # the shell lets its background processes ignore SIGINT
  wait "$collector" "$printer"
}

# Ends early, with the last report.
end_early() {
  trap '' INT TERM
  stop_collection
  exit 130
}

start_collection "$@"
trap end_early INT TERM
for application in "${applications[@]}"; do open_application "$application"; done
search
calculate
press_keys
stop_collection
