#!/bin/sh
# check-links.sh ROOT: every file that a document links to, or names by its path from the root, is there.
set -eu
cd "$1"
missing=0
complain() { echo "$1: there is no $2"; missing=1; }

for document in *.md docs/*.md examples/*.md examples/*/*.md; do
  for link in $(grep -oE '\]\([^)#: ]+' "$document" | sed 's/^](//'); do
    [ -e "$(dirname "$document")/$link" ] || complain "$document" "$link"
  done
  for name in $(grep -oE '`(Client|Export|Fleet|NorraDataCollector|Platform|Report|ScenarioPlayer|docs|examples|packaging|scripts|tests)/[A-Za-z0-9_./-]+`' \
    "$document" | tr -d '`'); do
    [ -e "$name" ] || [ -e "$name.h" ] || complain "$document" "$name"
  done
done
exit $missing
