#!/bin/sh
# check-command-line.sh PLAYER: what the program says and exits with when it is called in various ways.
set -u
player=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

# expect STATUS PATTERN ARGUMENT...: on a status other than 0 nothing is on standard output and a line of standard error
# matches; else a line of standard output matches. Standard input is that of the call.
expect() {
  status=$1
  pattern=$2
  shift 2
  "$player" "$@" >"$folder/out" 2>"$folder/err"
  actual=$?
  told="$folder/err"
  if [ "$status" -eq 0 ]; then told="$folder/out"; fi
  if [ "$actual" -ne "$status" ] || ! grep -qe "$pattern" "$told" || { [ "$status" -ne 0 ] && [ -s "$folder/out" ]; }; then
    echo "norra-scenario $*: status $actual, expected $status and '$pattern'"
    cat "$folder/out" "$folder/err"
    failures=$((failures + 1))
  fi
}

expect 0 'Usage:' --help
expect 2 'FILE' </dev/null
expect 2 'unknown' --unknown x
expect 2 'excludes' --calls --decode x
expect 2 "$folder/missing: cannot be read" "$folder/missing"
expect 2 "$folder: cannot be read" "$folder"
expect 2 "$folder/missing: cannot be read" --decode "$folder/missing"

echo '{}' >"$folder/empty"
expect 0 '"message":"Service stopped"' "$folder/empty"
expect 0 '"message":"Service stopped"' - <"$folder/empty"
echo '{"steps": [{"advance": 1}]}' >"$folder/quiet"
expect 0 '^{"t":1,"calls":{}}$' --calls "$folder/quiet"
echo '{"steps": [{"start": "a"}, {"click": {"at": [1]}}]}' >"$folder/faulty"
expect 2 ' /steps/1/click/at: ' "$folder/faulty"
echo '{' >"$folder/broken"
expect 2 'the whole file: not a JSON text' "$folder/broken"

decode() {
  printf "$1" | "$player" --decode - >"$folder/out"
  echo "status $?" >>"$folder/out"
  printf "$2" | diff - "$folder/out" || failures=$((failures + 1))
}
decode '' 'status 0\n'
decode '{"key":1, "action" : "Undefined"}\n\n{"operation":"start","action":"Collector"}' \
  '{"action":"Undefined"}\n{"action":"Collector","operation":"start"}\nstatus 0\n'
decode '{"action":"ClickHyperLink","elementName":"\\u00e9","automationID":"","url":"file:///x"}\r\n' \
  '{"action":"ClickHyperLink","elementName":"é","automationID":"","url":"file:\\/\\/\\/x"}\nstatus 0\n'

printf '[]\n{"action":"Collector"}\n{"action":"Undefined"}\n' | "$player" --decode - >"$folder/out"
[ $? -eq 1 ] || { echo "--decode of a faulty report exits with another status than 1"; failures=$((failures + 1)); }
sed -e 's/"error":"[^"\\]*\(\\.[^"\\]*\)*"/"error":"..."/' "$folder/out" >"$folder/masked"
printf '{"error":"..."}\n{"error":"...","member":"operation"}\n{"action":"Undefined"}\n' | diff - "$folder/masked" ||
  failures=$((failures + 1))

exit "$failures"
