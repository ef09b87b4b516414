#!/bin/sh
# check-twice.sh PLAYER FILE...: plays every scenario twice, the second time from standard input; both runs have to print
# the same bytes.
set -eu
player=$1
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
for file in "$@"; do
  "$player" --calls "$file" >"$folder/first"
  "$player" --calls - <"$file" >"$folder/second"
  cmp "$folder/first" "$folder/second" || { echo "differs: $file"; exit 1; }
done
