#!/usr/bin/env bash
# tries.sh COMMAND...: runs a test until it passes, at most NORRA_TRIES times; once where that is not set, or
# where it says with 77 that it is skipped.
set -u
[ "${NORRA_TRIES:-1}" -gt 1 ] || exec "$@"

for ((try = 1; ; ++try)); do
  "$@" && exit
  status=$?
  [ "$try" -lt "$NORRA_TRIES" ] && [ "$status" != 77 ] || exit "$status"
  echo "Try $try failed."
done
