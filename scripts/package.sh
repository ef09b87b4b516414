#!/usr/bin/env bash
# package.sh: builds the Debian packages and names them. They are in build/package/packages.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2s/^# //p' "$0"; exit 0 ;;
esac

scripts/setup.sh
cmake --preset package >/dev/null
cmake --build --preset package --parallel "$(nproc)"
cd build/package
cpack -G DEB >/dev/null
lintian --fail-on error packages/*.deb
ls "$PWD"/packages/*.deb
